// The three format routines on any double at any accuracy, and the way back.
//
// The input is either "b" and eight bytes, the bits of the value, then two
// bytes of accuracy; or text: a number as strtod reads it ("inf", "nan",
// "1e308", "0x1p-1074") and, after a blank, the accuracy. No accuracy given
// means 16.
//
// What holds for a finite value whose whole feet are written out in digits
// (below 1E+15, where NumberText turns to the exponent form):
//  - at accuracy 16 or 32, ParseLengthText reads FormatLength's text back
//    within half a step of that accuracy, give or take the last bits of the
//    double (the sum of feet, inches and fraction is rounded like any sum);
//  - at any other accuracy no fraction is written: the text reads back as
//    the whole inches below the value;
//  - FormatArea and FormatVolume read back through ParseAreaText and
//    ParseVolumeText within 1/32, unless the text is a fraction alone
//    ("1/2\""), which those two parses read as its numerator;
//  - the value itself is never changed, and a negative value gives a text
//    that reads back negative or zero.
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "fuzz/fuzz_check.h"
#include "measure/format_text.h"
#include "measure/parse_text.h"

namespace {

struct Input {
    double value = 0;
    std::int16_t accuracy = 16;
};

Input Decode(const std::uint8_t* data, std::size_t size) {
    Input in;
    if (size >= 9 && data[0] == 'b') {
        std::memcpy(&in.value, data + 1, sizeof in.value);
        if (size >= 11) std::memcpy(&in.accuracy, data + 9, sizeof in.accuracy);
        return in;
    }
    const std::string text(reinterpret_cast<const char*>(data), size);
    const char* start = text.c_str();
    char* end = nullptr;
    in.value = std::strtod(start, &end);
    if (end && *end == ' ')
        in.accuracy = static_cast<std::int16_t>(std::strtol(end + 1, nullptr, 10));
    return in;
}

// What the readback may be off by beyond the rounding to the step: the sum
// of feet, inches and fraction is rounded twice in double precision.
double SumSlack(double a) {
    return 4 * (std::nextafter(a, DBL_MAX) - a);
}

using Format = void (*)(const double&, std::string&, std::int16_t&);
using Parse = void (*)(std::string&, double&);

void CheckSquareOrCube(const char* name, Format format, Parse parse, double unitsInFoot,
                       double value) {
    std::int16_t count = 0;
    std::string text;
    format(value, text, count);
    FUZZ_CHECK(!text.empty() && text.back() == '"', "%s of %.17g gave '%s'", name, value,
               text.c_str());
    if (!std::isfinite(value)) return;
    const double a = std::fabs(value);
    if (std::floor(a / unitsInFoot) >= 1e15) return;
    // A fraction alone (no blank before it) loses its fraction on the way
    // back, as these parses read a bare "3/4" as 3.
    const std::string body = value < 0 ? text.substr(1) : text;
    if (!body.empty() && body.front() != ' ') return;
    std::string copy = text;
    double back = 0;
    parse(copy, back);
    FUZZ_CHECK(std::fabs(back - value) <= 1.0 / 32 + SumSlack(a),
               "%s of %.17g gave '%s', read back %.17g", name, value, text.c_str(), back);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Input in = Decode(data, size);
    const double value = in.value;
    const double before = value;

    std::int16_t count = 0;
    std::string text;
    measure::FormatLength(value, text, in.accuracy, count);
    FUZZ_CHECK(std::memcmp(&before, &value, sizeof value) == 0, "the value changed");
    FUZZ_CHECK(!text.empty() && text.back() == '"', "FormatLength of %.17g gave '%s'", value,
               text.c_str());
    FUZZ_CHECK((value < 0) == (text.front() == '-'), "FormatLength of %.17g gave '%s'", value,
               text.c_str());

    const double a = std::fabs(value);
    if (std::isfinite(value) && std::floor(a / 12) < 1e15) {
        std::string copy = text;
        double back = 0;
        measure::ParseLengthText(copy, back);
        const double slack = SumSlack(a);
        if (in.accuracy == 16 || in.accuracy == 32) {
            const double halfStep = 0.5 / in.accuracy;
            FUZZ_CHECK(std::fabs(back - value) <= halfStep + slack,
                       "FormatLength of %.17g at 1/%d gave '%s', read back %.17g", value,
                       in.accuracy, text.c_str(), back);
        } else {
            const double lost = a - std::fabs(back);
            FUZZ_CHECK(lost >= -slack && lost < 1 + slack && (value >= 0 ? back >= 0 : back <= 0),
                       "FormatLength of %.17g at accuracy %d gave '%s', read back %.17g", value,
                       in.accuracy, text.c_str(), back);
        }
    }

    CheckSquareOrCube("FormatArea", measure::FormatArea, measure::ParseAreaText, 144, value);
    CheckSquareOrCube("FormatVolume", measure::FormatVolume, measure::ParseVolumeText, 1728, value);
    return 0;
}
