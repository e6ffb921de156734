// How settings texts are read: truth values and whole numbers, each read
// failing (empty) on a text that is neither, so the variable keeps its value.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace shell {

// "True" and "False" in any case; a number is true unless it is 0.
std::optional<bool> ReadTruth(const std::string& text);
// A number rounded to a 32-bit integer, a tie going to the even one.
std::optional<std::int32_t> ReadWhole(const std::string& text);
// A number's text as a default is handed through the store.
std::string DefaultText(double value);

}  // namespace shell
