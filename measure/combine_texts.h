// Adding or subtracting two measurement texts of one kind, keeping the kind.
// Used by drops on the readout and on memory cells.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace measure {

// The fields of the calculator state that combining reads and writes.
struct CombineState {
    std::int16_t& PendingOperation;  // 1 add or 2 subtract on entry, 0 after
    double& ResultValue;
    std::int16_t& FractionCount;
    std::int16_t AccuracyDenominator;
    std::function<void()> SignalError;  // the calculator's error signal
};

// firstText combined with secondText. On success firstText and resultText hold
// the result, secondText is empty and state.ResultValue holds its number. A
// pair of differing kinds whose first text reads nonzero is refused: the error
// is signalled and resultText becomes "ERROR".
void CombineTexts(std::string& firstText, std::string& secondText, std::string& resultText,
                  CombineState& state);

}  // namespace measure
