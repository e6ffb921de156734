#include "forms/line_reader.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace forms {

LineReader::LineReader(std::size_t chunk, std::size_t maxLine)
    : buffer_(std::max<std::size_t>(chunk, 1)), maxLine_(maxLine) {}

bool LineReader::Fill() {
    if (done_) return false;
    const ssize_t got = ReadSome(buffer_.data(), buffer_.size());
    if (got <= 0) {
        done_ = true;
        failed_ = got < 0;
        return false;
    }
    at_ = 0;
    end_ = static_cast<std::size_t>(got);
    return true;
}

std::optional<std::string> LineReader::Next() {
    if (failed_) return std::nullopt;
    // The LF of a CR LF that the last line ended with.
    if (skipLineFeed_) {
        if (at_ == end_) Fill();
        if (at_ < end_ && buffer_[at_] == '\n') ++at_;
        skipLineFeed_ = false;
    }
    if (at_ == end_ && !Fill()) return std::nullopt;

    std::string line;
    for (;;) {
        const char* begin = buffer_.data() + at_;
        const char* stop = buffer_.data() + end_;
        const char* found =
            std::find_if(begin, stop, [](char c) { return c == '\r' || c == '\n'; });
        const auto piece = static_cast<std::size_t>(found - begin);
        if (line.size() + piece > maxLine_) {
            failed_ = true;
            done_ = true;
            return std::nullopt;
        }
        line.append(begin, piece);
        at_ += piece;
        if (found != stop) {
            skipLineFeed_ = *found == '\r';
            ++at_;
            return line;
        }
        // The text ended inside the line: it is the last one. A failure of
        // the disk is no end, and the line is not given.
        if (!Fill()) {
            if (failed_) return std::nullopt;
            return line;
        }
    }
}

ssize_t TextLineReader::ReadSome(char* into, std::size_t size) {
    const std::size_t n = std::min(size, text_.size() - at_);
    std::memcpy(into, text_.data() + at_, n);
    at_ += n;
    return static_cast<ssize_t>(n);
}

FileLineReader::~FileLineReader() {
    if (fd_ >= 0) ::close(fd_);
}

ssize_t FileLineReader::ReadSome(char* into, std::size_t size) {
    for (;;) {
        const ssize_t got = ::read(fd_, into, size);
        if (got >= 0 || errno != EINTR) return got;
    }
}

}  // namespace forms
