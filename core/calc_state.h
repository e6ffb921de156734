// The calculator's one shared record: the operands, the pending operation,
// the entry under evaluation, the last result and the formula in progress.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace core {

// PendingOperation codes.
enum Operation : std::int16_t {
    kNone = 0,
    kAdd = 1,
    kSubtract = 2,
    kMultiply = 3,
    kDivide = 4,
    kAddAreas = 5,  // also what the start leaves, so a first double Equal does nothing
    kSubtractAreas = 6,
    kAddVolumes = 7,
    kSubtractVolumes = 8,
    kSquareRoot = 9,
};

struct CalcState {
    std::optional<double> FirstValue;  // empty: nothing committed yet
    std::optional<double> SecondValue;
    std::int16_t PendingOperation = kNone;
    double EntryValue = 0;
    std::string EntryText;
    double ResultValue = 0;
    std::string ResultText;
    std::string FirstText;
    std::string SecondText;
    std::int16_t FractionCount = 0;
    std::int16_t FormulaState = 0;
};

}  // namespace core
