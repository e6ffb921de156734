// Small readers and writers of the scenario's words that several command
// families share.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "scenario/scenario_text.h"

namespace scenario {

// "Number(7)" -> ("Number", 7); "Readout" -> ("Readout", -1).
inline std::pair<std::string, int> SplitIndexedName(const std::string& name) {
    const auto open = name.find('(');
    if (open == std::string::npos || name.back() != ')') return {name, -1};
    auto index = ParseInteger(std::string_view(name).substr(open + 1, name.size() - open - 2));
    if (!index) return {name, -1};
    return {name.substr(0, open), static_cast<int>(*index)};
}

inline std::optional<std::int16_t> KeyByName(const Word& w) {
    if (w.quoted) {
        if (w.text.size() != 1) return std::nullopt;
        return static_cast<std::int16_t>(static_cast<unsigned char>(w.text[0]));
    }
    if (w.text == "Enter") return 13;
    if (w.text == "Escape") return 27;
    if (w.text == "Backspace") return 8;
    if (w.text == "Space") return 32;
    return std::nullopt;
}

inline std::string Truth(bool b) {
    return b ? "True" : "False";
}

}  // namespace scenario
