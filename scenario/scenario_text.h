// The words of a scenario line and the way the tool prints texts and numbers.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenario {

struct Word {
    std::string text;
    bool quoted = false;
    // The text holds a line end written as \r or \n, which only the command
    // that writes raw bytes into a file takes.
    bool lineEnds = false;
};

// Splits a line into words at blanks; a word in double quotes may hold
// blanks, with \" for a quote and \\ for a backslash (and \r and \n for a
// carriage return and a line feed, see Word::lineEnds), and may go on with a
// dot and a name ("Memory 2".Label1, an unquoted word). Empty on a line that
// cannot be read (an unclosed quote, a stray backslash).
std::optional<std::vector<Word>> SplitWords(std::string_view line);

// A text in double quotes, escaped the same way.
std::string Quote(std::string_view text);
// The shortest form that reads back exactly ("63.5", "-147", "1e+15", "inf").
std::string FormatNumber(double value);
// A decimal number as C++ reads one; empty if the word is not one.
std::optional<double> ParseNumber(std::string_view word);
std::optional<long> ParseInteger(std::string_view word);

}  // namespace scenario
