// The lines of a text file, one at a time, as the memory file is read: a
// line ends at CR LF, at a lone CR or at a lone LF, and the last one may
// end with the file. The text comes in pieces from wherever it lies (a file
// on the disk, a text in memory), so a file of any size is read with no
// more memory than its longest line.
//
// A line longer than kMaxLineBytes is no line of a memory file: the reader
// stops there as it does at the end of the file or at a failure of the
// disk, and gives nothing from then on.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace forms {

class LineReader {
  public:
    // 16 MiB. A name or value of a memory cell is a line; the program writes
    // none longer than what the user typed or dropped.
    static constexpr std::size_t kMaxLineBytes = 16u * 1024 * 1024;

    // Reads in pieces of `chunk` bytes; a line beyond `maxLine` bytes stops
    // the reading. Tests choose small ones to reach the edges.
    explicit LineReader(std::size_t chunk = 64 * 1024, std::size_t maxLine = kMaxLineBytes);
    virtual ~LineReader() = default;
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    // The next line, without its end; nothing past the last line, after a
    // failure to read, or for a line longer than the bound.
    std::optional<std::string> Next();

    // Whether the reading stopped on a failure or an overlong line rather
    // than at the end of the text.
    bool Failed() const { return failed_; }

  protected:
    // Puts up to `size` bytes of what follows into `into`: how many, 0 at
    // the end of the text, -1 on a failure.
    virtual ssize_t ReadSome(char* into, std::size_t size) = 0;

  private:
    // Refills the buffer; false at the end or on a failure.
    bool Fill();

    std::vector<char> buffer_;
    std::size_t at_ = 0, end_ = 0;
    std::size_t maxLine_;
    bool skipLineFeed_ = false;  // the last line ended at a CR: a LF next belongs to it
    bool done_ = false, failed_ = false;
};

// The lines of a text held in memory.
class TextLineReader : public LineReader {
  public:
    explicit TextLineReader(std::string text, std::size_t chunk = 64 * 1024,
                            std::size_t maxLine = kMaxLineBytes)
        : LineReader(chunk, maxLine), text_(std::move(text)) {}

  protected:
    ssize_t ReadSome(char* into, std::size_t size) override;

  private:
    std::string text_;
    std::size_t at_ = 0;
};

// The lines of an open file, read with read(2); the reader owns the file
// and closes it.
class FileLineReader : public LineReader {
  public:
    explicit FileLineReader(int fd, std::size_t chunk = 64 * 1024,
                            std::size_t maxLine = kMaxLineBytes)
        : LineReader(chunk, maxLine), fd_(fd) {}
    ~FileLineReader() override;

  protected:
    ssize_t ReadSome(char* into, std::size_t size) override;

  private:
    int fd_;
};

}  // namespace forms
