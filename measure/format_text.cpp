#include "measure/format_text.h"

#include <cmath>
#include <cstdlib>
#include <numeric>

#include "measure/number_text.h"
#include "measure/text_tools.h"
#include "measure/whole_numbers.h"

namespace measure {

namespace {

// "1/2", "3/16", "5/32": the count over the denominator in lowest terms;
// nothing for a count of 0.
std::string FractionText(std::int16_t count, std::int16_t denominator) {
    if (count == 0) return {};
    const int g = std::gcd(std::abs(int{count}), int{denominator});
    return std::to_string(count / g) + "/" + std::to_string(denominator / g);
}

// One writer for all three kinds. Every statement that fails (a 16-bit
// overflow, a double overflow) is dropped and the next one runs with the
// target unchanged; nothing here guards against feet beyond 15 digits, which
// simply come out in exponent form.
void FormatMeasure(const double& value, std::string& text, std::int16_t unitsInFoot,
                   std::int16_t denominator, std::int16_t& fractionCount) {
    const double units = unitsInFoot;
    const bool withFraction = denominator == 16 || denominator == 32;

    const double a = std::fabs(value);

    double feet = std::floor(a / units);
    std::string feetText = NumberText(feet);

    // Whole inches round down, then go into 16 bits.
    std::int16_t inches = 0;
    if (const auto feetUnits = CheckedMultiply(feet, units)) {
        if (const auto left = CheckedSubtract(a, *feetUnits)) {
            if (const auto whole = ToInt16(std::floor(*left))) inches = *whole;
        }
    }
    std::string inchText = NumberText(inches);

    // The unrounded remainder decides below whether a fraction is written
    // at all, even if it rounds to nothing.
    double remainder = 0.0;
    if (const auto feetUnits = CheckedMultiply(feet, units)) {
        if (const auto left = CheckedSubtract(a, *feetUnits)) {
            if (const auto rest = CheckedSubtract(*left, inches)) remainder = *rest;
        }
    }

    std::string fractionText;
    if (withFraction) {
        if (const auto count = ToInt16(remainder * denominator)) fractionCount = *count;

        // A fraction that rounds up to a whole inch carries into the inches,
        // and twelve (144, 1728) inches carry into the feet.
        if (fractionCount == denominator) {
            if (const auto more = AddInt16(inches, 1)) inches = *more;
            if (inches == unitsInFoot) {
                inches = 0;
                feet = feet + 1.0;
                feetText = NumberText(feet);
            }
            inchText = NumberText(inches);
            fractionCount = 0;
        }

        fractionText = FractionText(fractionCount, denominator);
    }

    // feetText and inchText bring their own leading blank.
    const std::string fractionPart = remainder != 0.0 ? " " + fractionText : std::string();
    if (feet != 0.0) {
        text = feetText + "'-" + inchText + fractionPart + "\"";
    } else if (inches != 0) {
        text = inchText + fractionPart + "\"";
    } else {
        text = fractionText + "\"";
    }

    if (feet == 0.0 && inches == 0 && fractionText.empty()) text = " 0\"";

    if (value < 0) text = "-" + text;
}

}  // namespace

void FormatLength(const double& value, std::string& text, std::int16_t accuracyDenominator,
                  std::int16_t& fractionCount) {
    FormatMeasure(value, text, 12, accuracyDenominator, fractionCount);
}

void FormatArea(const double& value, std::string& text, std::int16_t& fractionCount) {
    FormatMeasure(value, text, 144, 16, fractionCount);
}

void FormatVolume(const double& value, std::string& text, std::int16_t& fractionCount) {
    FormatMeasure(value, text, 1728, 16, fractionCount);
}

}  // namespace measure
