#include "measure/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace measure {

namespace {

constexpr int kSignificantDigits = 15;
constexpr int kSingleSignificantDigits = 7;

// Below this decimal exponent a number is written in exponent form; from
// the number of significant digits on, too.
constexpr int kSmallestFixedExponent = -4;

// `leadingBlank` and `zeroBeforePoint` are the two points where the forms
// differ; a single-precision value has fewer digits.
std::string Write(double x, bool leadingBlank, bool zeroBeforePoint,
                  int significantDigits = kSignificantDigits) {
    const int largestFixedExponent = significantDigits - 1;
    const std::string positiveSign = leadingBlank ? " " : "";
    if (std::isnan(x)) return positiveSign + "nan";
    if (std::isinf(x)) return x < 0 ? "-inf" : positiveSign + "inf";
    // Also catches -0, which is written as 0.
    if (x == 0.0) return positiveSign + "0";

    const bool negative = x < 0;
    // Rounded to 15 significant digits: "d.dddddddddddddde+XX".
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(x),
                                      std::chars_format::scientific, significantDigits - 1);
    const std::string scientific(buffer, result.ptr);
    const std::size_t e = scientific.find('e');
    std::string digits = scientific.substr(0, 1) + scientific.substr(2, e - 2);
    const int exponent = std::atoi(scientific.c_str() + e + 1);
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();

    std::string text = negative ? "-" : positiveSign;
    if (exponent > largestFixedExponent || exponent < kSmallestFixedExponent) {
        text += digits[0];
        if (digits.size() > 1) {
            text += '.';
            text.append(digits, 1);
        }
        text += exponent < 0 ? "E-" : "E+";
        const std::string exponentDigits = std::to_string(std::abs(exponent));
        if (exponentDigits.size() < 2) text += '0';
        text += exponentDigits;
    } else if (exponent >= 0) {
        const std::size_t wholeDigits = static_cast<std::size_t>(exponent) + 1;
        if (digits.size() <= wholeDigits) {
            text += digits;
            text.append(wholeDigits - digits.size(), '0');
        } else {
            text.append(digits, 0, wholeDigits);
            text += '.';
            text.append(digits, wholeDigits);
        }
    } else {
        if (zeroBeforePoint) text += '0';
        text += '.';
        text.append(static_cast<std::size_t>(-exponent - 1), '0');
        text += digits;
    }
    return text;
}

}  // namespace

std::string NumberText(double x) {
    return Write(x, true, false);
}

std::string PlainNumberText(double x) {
    return Write(x, false, true);
}

std::string PrintedSingleText(double x) {
    // Past the range of a single the value is an overflow: written as inf.
    double single = x;
    if (std::isfinite(x)) {
        single = std::fabs(x) > std::numeric_limits<float>::max()
                     ? std::copysign(std::numeric_limits<double>::infinity(), x)
                     : static_cast<double>(static_cast<float>(x));
    }
    return Write(single, true, false, kSingleSignificantDigits) + " ";
}

}  // namespace measure
