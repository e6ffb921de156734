#include "shell/settings_values.h"

#include <charconv>
#include <cmath>

#include "forms/case_insensitive.h"
#include "measure/number_text.h"
#include "measure/whole_numbers.h"

namespace shell {

namespace {

std::optional<double> ReadDouble(const std::string& text) {
    const auto begin = text.find_first_not_of(' ');
    if (begin == std::string::npos) return std::nullopt;
    const auto end = text.find_last_not_of(' ');
    const char* first = text.data() + begin;
    const char* last = text.data() + end + 1;
    if (*first == '+') ++first;
    double value = 0;
    auto [ptr, ec] = std::from_chars(first, last, value);
    if (ec != std::errc() || ptr != last || !std::isfinite(value)) return std::nullopt;
    return value;
}

}  // namespace

std::optional<bool> ReadTruth(const std::string& text) {
    const std::string trimmed = text.substr(0, text.find_last_not_of(' ') + 1);
    if (forms::EqualsIgnoringCase(trimmed, "True")) return true;
    if (forms::EqualsIgnoringCase(trimmed, "False")) return false;
    if (auto number = ReadDouble(text)) return *number != 0;
    return std::nullopt;
}

std::optional<std::int32_t> ReadWhole(const std::string& text) {
    auto number = ReadDouble(text);
    if (!number) return std::nullopt;
    return measure::ToInt32(*number);
}

std::string DefaultText(double value) {
    return measure::PlainNumberText(value);
}

}  // namespace shell
