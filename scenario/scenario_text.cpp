#include "scenario/scenario_text.h"

#include <charconv>
#include <cmath>

namespace scenario {

std::optional<std::vector<Word>> SplitWords(std::string_view line) {
    std::vector<Word> words;
    std::size_t i = 0;
    while (i < line.size()) {
        if (line[i] == ' ' || line[i] == '\t' || line[i] == '\r') {
            ++i;
            continue;
        }
        Word word;
        if (line[i] == '"') {
            word.quoted = true;
            ++i;
            bool closed = false;
            while (i < line.size()) {
                const char c = line[i++];
                if (c == '"') {
                    closed = true;
                    break;
                }
                if (c == '\\') {
                    if (i >= line.size()) return std::nullopt;
                    const char escaped = line[i++];
                    if (escaped == 'r' || escaped == 'n') {
                        word.text += escaped == 'r' ? '\r' : '\n';
                        word.lineEnds = true;
                    } else if (escaped == '"' || escaped == '\\') {
                        word.text += escaped;
                    } else {
                        return std::nullopt;
                    }
                } else {
                    word.text += c;
                }
            }
            if (!closed) return std::nullopt;
            if (i < line.size() && line[i] == '.') {
                // A form named by its caption, then one of its controls:
                // "Memory 2".Label1.
                word.quoted = false;
                while (i < line.size() && line[i] != ' ' && line[i] != '\t' && line[i] != '\r') {
                    word.text += line[i++];
                }
            }
            if (i < line.size() && line[i] != ' ' && line[i] != '\t' && line[i] != '\r') {
                return std::nullopt;
            }
        } else {
            while (i < line.size() && line[i] != ' ' && line[i] != '\t' && line[i] != '\r') {
                word.text += line[i++];
            }
        }
        words.push_back(std::move(word));
    }
    return words;
}

std::string Quote(std::string_view text) {
    std::string out = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        out += c;
    }
    out += '"';
    return out;
}

std::string FormatNumber(double value) {
    if (std::isnan(value)) return "nan";
    char buffer[64];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, end);
}

std::optional<double> ParseNumber(std::string_view word) {
    if (word.empty()) return std::nullopt;
    if (word.front() == '+') word.remove_prefix(1);
    double value = 0;
    auto [ptr, ec] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (ec != std::errc() || ptr != word.data() + word.size()) return std::nullopt;
    return value;
}

std::optional<long> ParseInteger(std::string_view word) {
    long value = 0;
    auto [ptr, ec] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (ec != std::errc() || ptr != word.data() + word.size() || word.empty()) return std::nullopt;
    return value;
}

}  // namespace scenario
