// The commands that run the measurement routines alone: accuracy, read,
// number and plain, parse, format, combine.
#include "scenario/runner.h"

#include <ostream>

#include "measure/combine_texts.h"
#include "measure/format_text.h"
#include "measure/number_text.h"
#include "measure/parse_text.h"
#include "measure/read_number.h"

#include "scenario/command_words.h"

namespace scenario {

bool Runner::MeasureCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (verb == "accuracy" && w.size() == 2) {
        auto n = ParseInteger(w[1].text);
        if (!n || *n < -32768 || *n > 32767) return false;
        accuracy_ = static_cast<std::int16_t>(*n);
        accuracyChosen_ = true;
        if (app_) P().AccuracyDenominator = accuracy_;
        return true;
    }
    if (verb == "read" && w.size() == 2 && w[1].quoted) {
        out_ << FormatNumber(measure::ReadNumber(w[1].text)) << "\n";
        return true;
    }
    if ((verb == "number" || verb == "plain") && w.size() == 2) {
        auto v = ParseNumber(w[1].text);
        if (!v) return false;
        out_ << Quote(verb == "number" ? measure::NumberText(*v) : measure::PlainNumberText(*v))
             << "\n";
        return true;
    }
    if (verb == "parse" && w.size() == 3 && w[2].quoted) {
        std::string text = w[2].text;
        double value = 0;
        if (w[1].text == "length") {
            measure::ParseLengthText(text, value);
            out_ << FormatNumber(value) << " " << Quote(text) << "\n";
        } else if (w[1].text == "area") {
            measure::ParseAreaText(text, value);
            out_ << FormatNumber(value) << "\n";
        } else if (w[1].text == "volume") {
            measure::ParseVolumeText(text, value);
            out_ << FormatNumber(value) << "\n";
        } else {
            return false;
        }
        return true;
    }
    if (verb == "format" && w.size() == 3) {
        auto v = ParseNumber(w[2].text);
        if (!v) return false;
        std::string text;
        std::int16_t fractionCount = 0;
        if (w[1].text == "length") {
            measure::FormatLength(*v, text, accuracy_, fractionCount);
        } else if (w[1].text == "area") {
            measure::FormatArea(*v, text, fractionCount);
        } else if (w[1].text == "volume") {
            measure::FormatVolume(*v, text, fractionCount);
        } else {
            return false;
        }
        out_ << Quote(text) << "\n";
        return true;
    }
    if (verb == "combine" && w.size() == 4 && w[1].quoted && w[3].quoted &&
        (w[2].text == "+" || w[2].text == "-")) {
        std::string first = w[1].text, second = w[3].text, result;
        std::int16_t pending = w[2].text == "+" ? 1 : 2, fractionCount = 0;
        double resultValue = 0;
        measure::CombineState state{pending, resultValue, fractionCount, accuracy_, [] {}};
        measure::CombineTexts(first, second, result, state);
        if (result == "ERROR") {
            out_ << "ERROR\n";
        } else {
            out_ << Quote(result) << " " << FormatNumber(resultValue) << "\n";
        }
        return true;
    }
    return false;
}

}  // namespace scenario
