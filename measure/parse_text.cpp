#include "measure/parse_text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "measure/number_text.h"
#include "measure/read_number.h"
#include "measure/text_tools.h"
#include "measure/whole_numbers.h"

namespace measure {

namespace {

struct Kind {
    double unitsInFoot;  // 12, 144 or 1728
    bool bareFraction;   // "3/4" without a whole number is understood
    bool rewritesText;   // the text ends as the value in NumberText form
};

// The fixed point of four decimals that numerator and denominator pass
// through; a number too large for it leaves the part at 0.
void ReadFractionPart(std::string_view text, double& part) {
    if (const auto scaled = ToFixedPoint4(ReadNumber(text))) part = FromFixedPoint4(*scaled);
}

// One reader for all three kinds. Positions and lengths are held in 16-bit
// variables; in a text too long for them the store fails, the variable keeps
// its 0, and the text reads as if the mark were not there.
void ParseMeasure(std::string& text, double& value, const Kind& kind) {
    bool negative = false;
    text = TrimBlanks(text);

    // Only the first sign counts; the rest of the text is read as it stands,
    // so "- 12'- 3\"" works.
    if (!text.empty() && text.front() == '-') {
        negative = true;
        text.erase(0, 1);
    }

    // The first foot mark splits the feet from the inches; a decimal foot
    // part is welcome.
    std::int16_t footPosition = 0;
    Store16(footPosition, FindPosition(text, '\''));
    double feet = 0.0;
    if (footPosition > 0) {
        const double footNumber = ReadNumber(
            std::string_view(text).substr(0, static_cast<std::size_t>(footPosition) - 1));
        if (const auto product = CheckedMultiply(footNumber, kind.unitsInFoot)) feet = *product;
    }

    std::string rest = TrimLeftBlanks(std::string_view(text).substr(
        std::min(static_cast<std::size_t>(footPosition), text.size())));

    // The hyphen between feet and inches. A lone "-" is left for the next
    // step to blank out.
    std::int16_t restLength = 0;
    Store16(restLength, rest.size());
    if (!rest.empty() && rest.front() == '-' && restLength >= 2) {
        rest.erase(0, 1);
    }
    rest = TrimLeftBlanks(rest);

    // Any other hyphen stands for the blank: "3-1/2" is "3 1/2".
    std::replace(rest.begin(), rest.end(), '-', ' ');

    // Everything from the inch mark on is ignored, " sq." and " cu." with it.
    std::int16_t inchPosition = 0;
    Store16(inchPosition, FindPosition(rest, '"'));
    if (inchPosition > 0) rest.resize(static_cast<std::size_t>(inchPosition) - 1);

    std::string whole;
    std::string fraction;
    std::int16_t blankPosition = 0;
    Store16(blankPosition, FindPosition(rest, ' '));
    if (blankPosition > 0) {
        whole = rest.substr(0, static_cast<std::size_t>(blankPosition) - 1);
        fraction = rest.substr(static_cast<std::size_t>(blankPosition));
    } else if (kind.bareFraction) {
        std::int16_t slashPosition = 0;
        Store16(slashPosition, FindPosition(rest, '/'));
        if (slashPosition >= 2) {
            whole.assign(1, '0');
            fraction = rest;
        } else {
            whole = rest;
        }
    } else {
        // Areas and volumes: "3/4" reads as 3, the fraction is lost.
        whole = rest;
    }

    const double inches = ReadNumber(whole);

    std::string numeratorText = "0";
    std::string denominatorText = "1";
    std::int16_t fractionSlash = 0;
    Store16(fractionSlash, FindPosition(fraction, '/'));
    if (fractionSlash > 0) {
        numeratorText = fraction.substr(0, static_cast<std::size_t>(fractionSlash) - 1);
        denominatorText = fraction.substr(static_cast<std::size_t>(fractionSlash));
    }
    double numerator = 0.0;
    double denominator = 0.0;
    ReadFractionPart(numeratorText, numerator);
    ReadFractionPart(denominatorText, denominator);
    // A denominator of 0 gives an infinite or not-a-number fraction, and that
    // goes into the value as it is.
    const double fractionValue = numerator / denominator;

    // An overflow of the sum leaves `value` as the caller had it.
    if (const auto feetAndInches = CheckedAdd(feet, inches)) {
        if (const auto sum = CheckedAdd(*feetAndInches, fractionValue)) value = *sum;
    }

    if (kind.rewritesText) text = NumberText(value);

    if (negative) value = 0.0 - value;
}

}  // namespace

void ParseLengthText(std::string& text, double& value) {
    ParseMeasure(text, value, Kind{12.0, true, true});
}

void ParseAreaText(std::string& text, double& value) {
    ParseMeasure(text, value, Kind{144.0, false, false});
}

void ParseVolumeText(std::string& text, double& value) {
    ParseMeasure(text, value, Kind{1728.0, false, false});
}

}  // namespace measure
