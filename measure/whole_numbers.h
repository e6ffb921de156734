// Conversions from a double to the program's integer types.
//
// Every place where a double becomes a 16- or 32-bit integer rounds to the
// nearest whole number with a tie going to the even one. A value that does not
// fit is a failure: the caller drops the statement and keeps the old value,
// which is why these return an empty optional instead of wrapping.
#pragma once

#include <cstdint>
#include <optional>

namespace measure {

std::optional<std::int16_t> ToInt16(double value);
std::optional<std::int32_t> ToInt32(double value);

// The four-decimal fixed point: value scaled by 10000 and rounded half to
// even into a 64-bit integer. Beyond about 9.2E+14 it does not fit.
std::optional<std::int64_t> ToFixedPoint4(double value);
double FromFixedPoint4(std::int64_t scaled);

// 16-bit signed addition that fails on overflow instead of wrapping.
std::optional<std::int16_t> AddInt16(std::int16_t a, std::int16_t b);

}  // namespace measure
