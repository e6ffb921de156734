// The lines of a text read in pieces: every line end counts once, CR LF, a
// lone CR or a lone LF, wherever the pieces part; a line beyond the bound
// and a failure of the disk stop the reading.
#include "forms/line_reader.h"
#include "tests/forms/reference_lines.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace forms {
namespace {

std::vector<std::string> AllLines(LineReader& reader) {
    std::vector<std::string> lines;
    while (auto line = reader.Next()) lines.push_back(*line);
    return lines;
}

TEST(LineReader, EveryLineEndCountsOnce) {
    TextLineReader reader("a\r\nb\rc\nd\r\n\r\ne\n\nf");
    EXPECT_EQ(AllLines(reader), (std::vector<std::string>{"a", "b", "c", "d", "", "e", "", "f"}));
    EXPECT_FALSE(reader.Failed());
}

TEST(LineReader, AnEmptyTextHasNoLineAndALastLineEndNoLineAfterIt) {
    TextLineReader empty("");
    EXPECT_EQ(empty.Next(), std::nullopt);
    TextLineReader ended("x\r\n");
    EXPECT_EQ(AllLines(ended), std::vector<std::string>{"x"});
    TextLineReader feed("\n");
    EXPECT_EQ(AllLines(feed), std::vector<std::string>{""});
}

TEST(LineReader, ACrLfSplitBetweenTwoPiecesIsOneLineEnd) {
    for (std::size_t chunk = 1; chunk <= 5; ++chunk) {
        TextLineReader reader("ab\r\ncd\r\n\r\nef", chunk);
        EXPECT_EQ(AllLines(reader), (std::vector<std::string>{"ab", "cd", "", "ef"}))
            << "pieces of " << chunk;
    }
}

TEST(LineReader, AnyTextInAnyPiecesGivesTheLinesOfTheWholeText) {
    std::mt19937 random(23u);
    const char letters[] = {'a', ' ', '\r', '\n', '\0', 'x'};
    for (int round = 0; round < 2000; ++round) {
        std::string text(random() % 40, ' ');
        for (char& c : text) c = letters[random() % sizeof letters];
        const std::size_t chunk = 1 + random() % 9;
        TextLineReader reader(text, chunk);
        EXPECT_EQ(AllLines(reader), testfiles::ReferenceLines(text)) << "round " << round;
    }
}

TEST(LineReader, ALineOfTheBoundIsReadAndOneByteMoreStopsTheReading) {
    TextLineReader fits("12345\r\nab", 3, 5);
    EXPECT_EQ(AllLines(fits), (std::vector<std::string>{"12345", "ab"}));
    EXPECT_FALSE(fits.Failed());

    TextLineReader beyond("ab\r\n123456\r\ncd", 3, 5);
    EXPECT_EQ(beyond.Next(), "ab");
    EXPECT_EQ(beyond.Next(), std::nullopt);
    EXPECT_TRUE(beyond.Failed());
    EXPECT_EQ(beyond.Next(), std::nullopt);

    // The last line, without an end, is held to the bound too.
    TextLineReader last("123456", 4, 5);
    EXPECT_EQ(last.Next(), std::nullopt);
    EXPECT_TRUE(last.Failed());
}

TEST(LineReader, TheBoundIsSixteenMebibytes) {
    EXPECT_EQ(LineReader::kMaxLineBytes, 16u * 1024 * 1024);
}

// A disk that fails after the first few bytes.
class FailingReader : public LineReader {
  public:
    FailingReader() : LineReader(4) {}

  protected:
    ssize_t ReadSome(char* into, std::size_t size) override {
        if (calls_++ > 0) {
            errno = EIO;
            return -1;
        }
        const std::string first = "ab\nc";
        const std::size_t n = std::min(size, first.size());
        first.copy(into, n);
        return static_cast<ssize_t>(n);
    }

  private:
    int calls_ = 0;
};

TEST(LineReader, AFailureOfTheDiskIsNoEndOfTheFile) {
    FailingReader reader;
    EXPECT_EQ(reader.Next(), "ab");
    // "c" was read, but its line never ended: it is not given.
    EXPECT_EQ(reader.Next(), std::nullopt);
    EXPECT_TRUE(reader.Failed());
}

TEST(FileLineReader, ReadsAFileOnTheDisk) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("lmlines." + std::to_string(::getpid()));
    std::string text;
    for (int i = 0; i < 50000; ++i) text += "line " + std::to_string(i) + (i % 2 ? "\r\n" : "\n");
    std::ofstream(file, std::ios::binary) << text;
    const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(fd, 0);
    FileLineReader reader(fd);
    EXPECT_EQ(AllLines(reader), testfiles::ReferenceLines(text));
    EXPECT_FALSE(reader.Failed());
    std::filesystem::remove(file);
}

}  // namespace
}  // namespace forms
