// The tests that tell a measurement text's kind by the marks it holds. All
// are case-sensitive searches anywhere in the text.
#pragma once

#include <string>
#include <string_view>

#include "measure/text_tools.h"

namespace core {

inline bool Holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}
// A foot mark or an inch mark: a length (areas and volumes hold one too).
inline bool IsMarked(std::string_view t) {
    return Holds(t, "'") || Holds(t, "\"");
}
inline bool IsAreaText(std::string_view t) {
    return Holds(t, "sq");
}
inline bool IsVolumeText(std::string_view t) {
    return Holds(t, "cu");
}

using measure::RightTrimBlanks;
using measure::TrimBlanks;

}  // namespace core
