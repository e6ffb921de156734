// The font of a control as the design names it ("MS Sans Serif", 13.5 points).
#pragma once

#include <string>

namespace forms {

struct Font {
    std::string Name = "MS Sans Serif";
    double Size = 8.25;
    bool Bold = false;

    bool operator==(const Font&) const = default;
};

}  // namespace forms
