#include "measure/text_tools.h"

#include <cmath>
#include <limits>

namespace measure {

std::string TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const std::size_t last = text.find_last_not_of(' ');
    return std::string(text.substr(first, last - first + 1));
}

std::string TrimLeftBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first));
}

std::string RightTrimBlanks(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    if (last == std::string_view::npos) return {};
    return std::string(text.substr(0, last + 1));
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::size_t FindPosition(std::string_view text, char c) {
    const std::size_t index = text.find(c);
    return index == std::string_view::npos ? 0 : index + 1;
}

bool Store16(std::int16_t& variable, std::size_t number) {
    if (number > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) return false;
    variable = static_cast<std::int16_t>(number);
    return true;
}

std::optional<double> Checked(double result, double left, double right) {
    if (!std::isfinite(result) && std::isfinite(left) && std::isfinite(right)) return std::nullopt;
    return result;
}

}  // namespace measure
