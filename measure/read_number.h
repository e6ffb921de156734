// ReadNumber: the numeric prefix of a text.
#pragma once

#include <string_view>

namespace measure {

// Reads from the left, skipping blanks, tabs and line feeds wherever they
// stand (also between digits: "1 2" reads 12). Takes an optional sign, digits
// with at most one point, an optional exponent introduced by E or D in either
// case; a leading &H or &O reads a hexadecimal or octal number. Stops at the
// first character that fits none of this. No digits read as 0; it never fails.
double ReadNumber(std::string_view text);

}  // namespace measure
