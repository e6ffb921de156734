// Memory files far larger than any the program writes: the reader takes
// them a line at a time from the disk, so a file larger than the memory the
// program may use fails as any bad file does, silently, instead of ending
// the program. A line longer than the reader's bound is such a failure.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "forms/line_reader.h"
#include "memory_file_fixture.h"

#if defined(__SANITIZE_ADDRESS__)
#define LATHMARK_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define LATHMARK_ASAN 1
#endif
#endif

namespace {

constexpr std::size_t kBound = forms::LineReader::kMaxLineBytes;

using HugeMemoryFile = MemoryFileApp;

// What a failed read leaves: no cell, file number 2 still in use and the
// memory window deaf to its Resize; and not a word said.
std::string WhatAFailedReadLeaves(core::Program& p, std::size_t cells, std::size_t shown) {
    std::string wrong;
    if (cells != 0) wrong += "cells were made; ";
    if (!p.OpenFileNumbers.contains(2)) wrong += "file number 2 is not in use; ";
    if (p.ArrangingMemory != 1) wrong += "ArrangingMemory is not 1; ";
    if (shown != 0) wrong += "a message was shown; ";
    return wrong;
}

// A file of 3 GiB that holds nothing but NUL bytes, made sparse so that it
// costs no disk: one line, far beyond the bound.
TEST_F(HugeMemoryFile, AFileLargerThanTheMemoryAllowedFailsSilently) {
    const std::string path = PathOf("huge.mem");
    {
        const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        ASSERT_GE(fd, 0);
        ASSERT_EQ(::ftruncate(fd, 3LL * 1024 * 1024 * 1024), 0);
        ::close(fd);
    }
    Choose("huge.mem");

#ifdef LATHMARK_ASAN
    // AddressSanitizer reserves terabytes of address space for its shadow,
    // so no limit on the address space can be set under it; the read is
    // still made, without the limit.
    Menu("mnuOpen");
    EXPECT_EQ(WhatAFailedReadLeaves(P(), Cells().size(), messages.shown.size()), "");
#else
    // The read runs in a child limited to 1.5 GiB of address space, half
    // the file: a reader that took the file whole would run out of memory
    // there and end with std::bad_alloc.
    std::fflush(nullptr);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const rlimit limit{1536ULL * 1024 * 1024, 1536ULL * 1024 * 1024};
        if (::setrlimit(RLIMIT_AS, &limit) != 0) ::_exit(3);
        // The test framework would catch what the program lets fly: the
        // child says so itself and ends, as the program would have ended.
        try {
            Menu("mnuOpen");
        } catch (const std::exception& e) {
            std::fprintf(stderr, "the read threw %s\n", e.what());
            ::_exit(5);
        }
        const std::string wrong = WhatAFailedReadLeaves(P(), Cells().size(), messages.shown.size());
        if (!wrong.empty()) {
            std::fprintf(stderr, "%s\n", wrong.c_str());
            ::_exit(4);
        }
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_FALSE(WIFSIGNALED(status))
        << "the read ended the program with signal " << WTERMSIG(status);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_NE(WEXITSTATUS(status), 3) << "the limit could not be set";
    EXPECT_NE(WEXITSTATUS(status), 5) << "the read threw (out of memory)";
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the failed read left the program otherwise";
#endif
}

// A cell's name longer than the bound fails the read there: the window
// has taken its place and title from the lines before, no cell is made.
TEST_F(HugeMemoryFile, ALineLongerThanTheBoundFailsTheRead) {
    std::string bytes = " 1635 \r\n 1980 \r\n 3990 \r\n 1040 \r\n 1\r\n 1935\r\n";
    bytes += std::string(kBound + 1, 'n');
    bytes += "\r\n 6'  \r\n";
    WriteBytes("long.mem", bytes);
    Choose("long.mem");
    Menu("mnuOpen");
    EXPECT_EQ(WhatAFailedReadLeaves(P(), Cells().size(), messages.shown.size()), "");
    EXPECT_EQ(P().MDIForm1->Caption(), "long");
    EXPECT_EQ(P().MDIForm1->Left(), 1635);
}

// A line of just the bound is read whole, whatever else the file holds.
TEST_F(HugeMemoryFile, ALineOfTheBoundIsRead) {
    std::string bytes = " 1635 \r\n 1980 \r\n 3990 \r\n 1040 \r\n 1\r\n 1935\r\n";
    bytes += std::string(kBound, 'n');
    bytes += "\r\n 6'  \r\n";
    WriteBytes("long.mem", bytes);
    Choose("long.mem");
    Menu("mnuOpen");
    ASSERT_EQ(Cells().size(), 1u);
    EXPECT_EQ(Cells()[0]->Caption().size(), kBound);
    EXPECT_EQ(Value(*Cells()[0]), " 6'  ");
    EXPECT_TRUE(P().OpenFileNumbers.empty());
    EXPECT_EQ(P().ArrangingMemory, 0);
}

}  // namespace
