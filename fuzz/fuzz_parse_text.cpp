// The three parses on any text. Each reads its text argument and writes only
// that and its value: ParseAreaText and ParseVolumeText leave the text
// trimmed of blanks and without its leading "-", ParseLengthText leaves the
// unsigned value in NumberText form. A value that cannot be summed keeps
// what the caller had in it.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

#include "fuzz/fuzz_check.h"
#include "measure/number_text.h"
#include "measure/parse_text.h"
#include "measure/text_tools.h"

namespace {

using Parse = void (*)(std::string&, double&);

bool SameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// The text trimmed and without its first "-", as the sign step leaves it.
std::string Unsigned(const std::string& text, bool& negative) {
    std::string t = measure::TrimBlanks(text);
    negative = !t.empty() && t.front() == '-';
    if (negative) t.erase(0, 1);
    return t;
}

void Check(const char* name, Parse parse, bool rewrites, const std::string& input) {
    bool negative = false;
    const std::string expected = Unsigned(input, negative);

    std::string text = input;
    double value = 12345.0;  // what the caller had, kept where the sum fails
    parse(text, value);
    const double unsignedValue = negative ? 0.0 - value : value;
    if (rewrites) {
        FUZZ_CHECK(text == measure::NumberText(unsignedValue), "%s of '%s' left '%s' for %.17g",
                   name, input.c_str(), text.c_str(), value);
    } else {
        FUZZ_CHECK(text == expected, "%s of '%s' left '%s', not '%s'", name, input.c_str(),
                   text.c_str(), expected.c_str());
    }

    // The same text reads the same again: nothing else took part.
    std::string again = input;
    double second = 12345.0;
    parse(again, second);
    FUZZ_CHECK(again == text && SameBits(second, value), "%s of '%s' is not repeatable", name,
               input.c_str());

    // The sign step takes off one "-" and only that: the rest reads as the
    // same text without it would, unless that begins with a sign of its own.
    if (!negative) return;
    const std::string rest = measure::TrimBlanks(expected);
    if (!rest.empty() && rest.front() == '-') return;
    std::string plain = expected;
    double plainValue = 12345.0;
    parse(plain, plainValue);
    FUZZ_CHECK((std::isnan(value) && std::isnan(plainValue)) || value == 0.0 - plainValue,
               "%s of '%s' is %.17g but without its sign %.17g", name, input.c_str(), value,
               plainValue);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    Check("ParseLengthText", measure::ParseLengthText, true, input);
    Check("ParseAreaText", measure::ParseAreaText, false, input);
    Check("ParseVolumeText", measure::ParseVolumeText, false, input);
    return 0;
}
