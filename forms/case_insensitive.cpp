#include "forms/case_insensitive.h"

namespace forms {

namespace {
char Lower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}
}  // namespace

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (Lower(a[i]) != Lower(b[i])) return false;
    }
    return true;
}

std::string FoldCase(std::string_view name) {
    std::string folded(name);
    for (char& c : folded) c = Lower(c);
    return folded;
}

}  // namespace forms
