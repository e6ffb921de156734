// Reading measurement text (" 12'- 3 1/2\"", "5'3-1/2", "12.5") into inches,
// square inches or cubic inches. Nothing is ever reported: what cannot be
// read counts as 0.
//
// All three trim `text` of blanks in place and drop a leading "-" from it (the
// sign goes into `value`). Positions inside the text are 16-bit: a mark that
// stands beyond position 32767 is not seen, and a rest of the text longer
// than that keeps its hyphen. When the sum of feet, inches and fraction
// overflows a double, `value` keeps what the caller had in it.
#pragma once

#include <string>

namespace measure {

// Finally replaces `text` by the unsigned value as NumberText; a caller that
// still needs the text passes a copy.
void ParseLengthText(std::string& text, double& value);

// The foot part counts 144 or 1728, and a fraction without a whole number is
// not understood: "3/4\" sq." reads as 3.
void ParseAreaText(std::string& text, double& value);
void ParseVolumeText(std::string& text, double& value);

}  // namespace measure
