// Writing inches, square inches and cubic inches as measurement text.
//
// `fractionCount` is the calculator's working field for the fraction; the
// routines leave their last count in it (and leave it alone when a step
// fails), which is why it is passed in rather than kept local.
#pragma once

#include <cstdint>
#include <string>

namespace measure {

// Feet, inches and a fraction to the nearest 1/accuracyDenominator; an
// accuracy other than 16 or 32 writes no fraction at all.
void FormatLength(const double& value, std::string& text, std::int16_t accuracyDenominator,
                  std::int16_t& fractionCount);

// 144 square inches to the foot and 1728 cubic inches, always to 1/16. The
// " sq." and " cu." suffixes are the callers' to add.
void FormatArea(const double& value, std::string& text, std::int16_t& fractionCount);
void FormatVolume(const double& value, std::string& text, std::int16_t& fractionCount);

}  // namespace measure
