// Comparison of setting names without regard to case (ASCII letters only,
// as the names are).
#pragma once

#include <string_view>

namespace forms {

bool EqualsIgnoringCase(std::string_view a, std::string_view b);

}  // namespace forms
