// Comparison of setting names without regard to case (ASCII letters only,
// as the names are).
#pragma once

#include <string>
#include <string_view>

namespace forms {

bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// The name in lower case: two names are equal without regard to case when
// their folded forms are equal.
std::string FoldCase(std::string_view name);

}  // namespace forms
