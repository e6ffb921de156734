// Small text and arithmetic helpers shared by the measurement routines and
// the calculator's handlers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace measure {

// Blanks only (character 32): tabs and other white space are kept, as the
// program's trimming has always done.
std::string TrimBlanks(std::string_view text);
std::string TrimLeftBlanks(std::string_view text);
std::string RightTrimBlanks(std::string_view text);

bool Contains(std::string_view text, std::string_view part);

// The 1-based position of the first `c` in `text`, 0 when there is none.
std::size_t FindPosition(std::string_view text, char c);

// Positions and lengths inside a measurement text live in 16-bit variables.
// Storing a number that does not fit is a failed statement: the variable
// keeps what it held. Returns whether the store happened.
bool Store16(std::int16_t& variable, std::size_t number);

// The result of one double operation, or nothing when finite operands
// overflowed: such a statement fails and its target keeps its value.
// Operands that are already infinite or not-a-number pass through.
std::optional<double> Checked(double result, double left, double right);

inline std::optional<double> CheckedAdd(double a, double b) {
    return Checked(a + b, a, b);
}
inline std::optional<double> CheckedSubtract(double a, double b) {
    return Checked(a - b, a, b);
}
inline std::optional<double> CheckedMultiply(double a, double b) {
    return Checked(a * b, a, b);
}

}  // namespace measure
