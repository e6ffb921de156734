#include "measure/whole_numbers.h"

#include <cmath>
#include <limits>

namespace measure {

namespace {

// Nearest whole number, a tie going to the even one. Written out rather than
// left to std::nearbyint so that it cannot depend on the floating-point
// rounding mode in force. Not-a-number stays not-a-number.
double RoundHalfEven(double value) {
    double whole = std::floor(value);
    const double part = value - whole;  // exact: the fraction of a double is a double
    if (part > 0.5) {
        whole += 1.0;
    } else if (part == 0.5 && std::fmod(whole, 2.0) != 0.0) {
        whole += 1.0;
    }
    return whole;
}

}  // namespace

std::optional<std::int16_t> ToInt16(double value) {
    const double rounded = RoundHalfEven(value);
    // Written so that not-a-number fails the test as well.
    if (!(rounded >= -32768.0 && rounded <= 32767.0)) return std::nullopt;
    return static_cast<std::int16_t>(rounded);
}

std::optional<std::int32_t> ToInt32(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) return std::nullopt;
    return static_cast<std::int32_t>(rounded);
}

std::optional<std::int64_t> ToFixedPoint4(double value) {
    const double rounded = RoundHalfEven(value * 10000.0);
    // 2^63 is exact as a double; the largest double below it fits.
    constexpr double kLimit = 9223372036854775808.0;
    if (!(rounded >= -kLimit && rounded < kLimit)) return std::nullopt;
    return static_cast<std::int64_t>(rounded);
}

double FromFixedPoint4(std::int64_t scaled) {
    return static_cast<double>(scaled) / 10000.0;
}

std::optional<std::int16_t> AddInt16(std::int16_t a, std::int16_t b) {
    const std::int32_t sum = std::int32_t{a} + std::int32_t{b};
    if (sum < std::numeric_limits<std::int16_t>::min() ||
        sum > std::numeric_limits<std::int16_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(sum);
}

}  // namespace measure
