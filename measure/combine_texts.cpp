#include "measure/combine_texts.h"

#include "measure/format_text.h"
#include "measure/parse_text.h"
#include "measure/read_number.h"
#include "measure/text_tools.h"

namespace measure {

namespace {

enum Operation : std::int16_t {
    kAdd = 1,
    kSubtract = 2,
    kAddAreas = 5,
    kSubtractAreas = 6,
    kAddVolumes = 7,
    kSubtractVolumes = 8,
};

// Turns the caller's add or subtract into the one of the given kind. Any other
// pending operation stays as it is, and then nothing is computed.
std::int16_t Refine(std::int16_t pending, std::int16_t onAdd, std::int16_t onSubtract) {
    if (pending == kAdd) return onAdd;
    if (pending == kSubtract) return onSubtract;
    return pending;
}

bool IsArea(const std::string& text) {
    return Contains(text, "sq");
}
bool IsVolume(const std::string& text) {
    return Contains(text, "cu");
}

// first + second or first - second; an overflow leaves ResultValue as it was.
void Apply(bool add, double first, double second, double& resultValue) {
    if (const auto result = add ? CheckedAdd(first, second) : CheckedSubtract(first, second)) {
        resultValue = *result;
    }
}

}  // namespace

void CombineTexts(std::string& firstText, std::string& secondText, std::string& resultText,
                  CombineState& state) {
    // Which kind of operation, from the marks in the two texts.
    const std::int16_t pending = state.PendingOperation;
    if (IsArea(firstText) && IsArea(secondText)) {
        state.PendingOperation = Refine(pending, kAddAreas, kSubtractAreas);
    } else if (IsVolume(firstText) && IsVolume(secondText)) {
        state.PendingOperation = Refine(pending, kAddVolumes, kSubtractVolumes);
    } else if (!IsArea(firstText) && !IsVolume(firstText) && !IsArea(secondText) &&
               !IsVolume(secondText)) {
        state.PendingOperation = Refine(pending, kAdd, kSubtract);
    } else if (ReadNumber(firstText) != 0.0) {
        // The kinds differ and the first is not empty: a length can't take an
        // area. Only the first text may count as an empty operand.
        if (state.SignalError) state.SignalError();
        state.PendingOperation = 0;
        resultText = "ERROR";
        return;
    } else if (IsArea(secondText)) {
        // An empty first operand (" 0\" ") takes on the kind of the second.
        state.PendingOperation = Refine(pending, kAddAreas, kSubtractAreas);
    } else if (IsVolume(secondText)) {
        state.PendingOperation = Refine(pending, kAddVolumes, kSubtractVolumes);
    } else {
        state.PendingOperation = Refine(pending, kAdd, kSubtract);
    }

    const std::int16_t operation = state.PendingOperation;
    switch (operation) {
        case kAdd:
        case kSubtract: {
            double first = 0.0;
            double second = 0.0;
            ParseLengthText(firstText, first);
            ParseLengthText(secondText, second);
            Apply(operation == kAdd, first, second, state.ResultValue);
            FormatLength(state.ResultValue, resultText, state.AccuracyDenominator,
                         state.FractionCount);
            break;
        }
        case kAddAreas:
        case kSubtractAreas: {
            // An area whose leading number is 0 is an empty operand, whatever
            // follows it.
            double first = 0.0;
            double second = 0.0;
            if (ReadNumber(firstText) != 0.0) ParseAreaText(firstText, first);
            ParseAreaText(secondText, second);
            Apply(operation == kAddAreas, first, second, state.ResultValue);
            FormatArea(state.ResultValue, resultText, state.FractionCount);
            resultText += " sq.";
            break;
        }
        case kAddVolumes:
        case kSubtractVolumes: {
            double first = 0.0;
            double second = 0.0;
            if (ReadNumber(firstText) != 0.0) ParseVolumeText(firstText, first);
            ParseVolumeText(secondText, second);
            Apply(operation == kAddVolumes, first, second, state.ResultValue);
            FormatVolume(state.ResultValue, resultText, state.FractionCount);
            resultText += " cu.";
            break;
        }
        default:
            // Multiply, divide and the rest are not this routine's business:
            // resultText stays as it came.
            break;
    }

    firstText = resultText;
    secondText.clear();
    state.PendingOperation = 0;
}

}  // namespace measure
