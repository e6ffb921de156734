// CombineTexts on two texts and both operations. The first byte chooses the
// operation (bit 0: subtract) and the accuracy (bits 1-2: 16, 32, 8 or 0);
// the rest is the first text and the second, split at the first "|".
//
// Whatever the texts: PendingOperation is 0 afterwards. A refused pair
// signals once, leaves both texts as they were and "ERROR" as the result;
// otherwise nothing is signalled, the first text holds the result and the
// second is empty.
#include <cstdint>
#include <string>

#include "fuzz/fuzz_check.h"
#include "measure/combine_texts.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::int16_t accuracies[] = {16, 32, 8, 0};
    const std::uint8_t control = data[0];
    const std::string rest(reinterpret_cast<const char*>(data + 1), size - 1);
    const std::size_t bar = rest.find('|');
    const std::string first = rest.substr(0, bar);
    const std::string second = bar == std::string::npos ? std::string() : rest.substr(bar + 1);

    std::int16_t pending = (control & 1) ? 2 : 1;
    double resultValue = 0;
    std::int16_t fractionCount = 0;
    int signals = 0;
    measure::CombineState state{pending, resultValue, fractionCount, accuracies[(control >> 1) & 3],
                                [&signals] { ++signals; }};

    std::string firstText = first, secondText = second, resultText = "unset";
    measure::CombineTexts(firstText, secondText, resultText, state);

    FUZZ_CHECK(pending == 0, "PendingOperation %d after '%s' and '%s'", pending, first.c_str(),
               second.c_str());
    if (signals > 0) {
        FUZZ_CHECK(
            signals == 1 && resultText == "ERROR" && firstText == first && secondText == second,
            "refusal of '%s' and '%s' left '%s', '%s', '%s'", first.c_str(), second.c_str(),
            firstText.c_str(), secondText.c_str(), resultText.c_str());
    } else {
        FUZZ_CHECK(resultText != "unset" && resultText != "ERROR" && firstText == resultText &&
                       secondText.empty(),
                   "'%s' and '%s' left '%s', '%s', '%s'", first.c_str(), second.c_str(),
                   firstText.c_str(), secondText.c_str(), resultText.c_str());
    }
    return 0;
}
