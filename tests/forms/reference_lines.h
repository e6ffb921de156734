// The lines of a whole text as a reader of all of it at once splits them, to
// hold the line reader against: CR LF, a lone CR and a lone LF each end one
// line, and a last line end has no line after it.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace testfiles {

// Up to the first line longer than `bound`; `stopped` tells whether one was.
inline std::vector<std::string> ReferenceLines(const std::string& text, std::size_t bound,
                                               bool& stopped) {
    std::vector<std::string> lines;
    stopped = false;
    std::size_t at = 0;
    while (at < text.size()) {
        std::size_t end = at;
        while (end < text.size() && text[end] != '\r' && text[end] != '\n') ++end;
        if (end - at > bound) {
            stopped = true;
            break;
        }
        lines.push_back(text.substr(at, end - at));
        at = end;
        if (at < text.size()) {
            const bool cr = text[at] == '\r';
            ++at;
            if (cr && at < text.size() && text[at] == '\n') ++at;
        }
    }
    return lines;
}

inline std::vector<std::string> ReferenceLines(const std::string& text) {
    bool stopped = false;
    return ReferenceLines(text, std::numeric_limits<std::size_t>::max(), stopped);
}

}  // namespace testfiles
