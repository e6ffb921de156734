#include "core/text_marks.h"

namespace core {

std::string RightTrimBlanks(std::string_view text) {
    const auto end = text.find_last_not_of(' ');
    return end == std::string_view::npos ? std::string() : std::string(text.substr(0, end + 1));
}

std::string TrimBlanks(std::string_view text) {
    const auto begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos) return {};
    return RightTrimBlanks(text.substr(begin));
}

}  // namespace core
