// ReadNumber on any text: it never fails, and it reads only the number at
// the start, so text after a character that ends the number changes nothing.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/fuzz_check.h"
#include "measure/read_number.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const double value = measure::ReadNumber(text);
    // The same text reads the same number: there is no state behind it.
    const double again = measure::ReadNumber(text);
    FUZZ_CHECK(std::memcmp(&value, &again, sizeof value) == 0, "text '%s'", text.c_str());

    // A "#" fits no number in any base, so it ends the reading wherever it
    // stands: what follows it is never read.
    const std::size_t hash = text.find('#');
    if (hash != std::string::npos) {
        const double prefix = measure::ReadNumber(std::string_view(text).substr(0, hash));
        FUZZ_CHECK((std::isnan(value) && std::isnan(prefix)) || value == prefix,
                   "text '%s': %.17g against the part before '#' %.17g", text.c_str(), value,
                   prefix);
    }
    return 0;
}
