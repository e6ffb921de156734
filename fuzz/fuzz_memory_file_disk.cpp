// The memory file read from the disk, a line at a time, on inputs of up to
// a megabyte (scripts/fuzz.sh runs it with -max_len=1048576). Each input is
// written to a file, then:
//  - the disk's reader gives exactly the lines of the whole input (split at
//    CR LF, a lone CR or a lone LF), in its pieces of 64 KiB; and the same
//    reader, given the input in small pieces (1 to 16 bytes, chosen by the
//    input) with a small bound on a line (chosen too), gives the lines up
//    to the first one beyond the bound and then stops, failed;
//  - a whole program, headless, opens the file through the disk: a read
//    that worked made a cell of each pair of lines after the sixth, as many
//    as the fifth line counts, named and valued by those lines, and left no
//    file number in use; a read that failed keeps file number 2 and
//    ArrangingMemory at 1. A program whose read worked takes the next
//    input, as a user's next Open would.
#include <cstdint>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/disk_files.h"
#include "forms/line_reader.h"
#include "fuzz/fuzz_check.h"
#include "fuzz/fuzz_scratch.h"
#include "measure/read_number.h"
#include "measure/whole_numbers.h"
#include "memory/cells.h"
#include "memory/memory_file.h"
#include "shell/headless_program.h"
#include "tests/forms/reference_lines.h"

namespace {

std::vector<std::string> ReadAll(forms::LineReader& reader) {
    std::vector<std::string> lines;
    while (auto line = reader.Next()) lines.push_back(*line);
    return lines;
}

struct Session {
    forms::DiskFiles files{FuzzScratchFolder().string()};
    shell::HeadlessProgram program{nullptr, &files};
};

std::unique_ptr<Session> session;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string content(reinterpret_cast<const char*>(data), size);
    const std::string path = (FuzzScratchFolder() / "cells.mem").string();
    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(content.data(), static_cast<std::streamsize>(content.size()));
    }

    bool stopped = false;
    const std::vector<std::string> expected =
        testfiles::ReferenceLines(content, forms::LineReader::kMaxLineBytes, stopped);
    {
        forms::DiskFiles disk(FuzzScratchFolder().string());
        forms::FileStore::OpenResult opened = disk.OpenLines(path);
        FUZZ_CHECK(opened.lines, "the file could not be opened: %s", opened.error.c_str());
        FUZZ_CHECK(ReadAll(*opened.lines) == expected, "the disk's lines differ");
        FUZZ_CHECK(!opened.lines->Failed(), "the reading failed");
    }
    {
        const std::size_t chunk = size > 0 ? 1 + data[0] % 16 : 1;
        const std::size_t bound = size > 1 ? data[1] % 64 : 0;
        bool cut = false;
        const std::vector<std::string> bounded = testfiles::ReferenceLines(content, bound, cut);
        // The same text in small pieces, with a small bound. (From the
        // disk that would be a read(2) for every few bytes of a megabyte;
        // the pieces are cut by the same reader either way.)
        forms::TextLineReader small(content, chunk, bound);
        FUZZ_CHECK(ReadAll(small) == bounded, "pieces of %zu, bound %zu: the lines differ", chunk,
                   bound);
        FUZZ_CHECK(small.Failed() == cut, "pieces of %zu, bound %zu: failed %d, cut %d", chunk,
                   bound, small.Failed(), cut);
    }

    if (!session || session->program.P().OpenFileNumbers.contains(2)) {
        session.reset();
        session = std::make_unique<Session>();
    }
    core::Program& p = session->program.P();
    p.MemoryFileName = path;
    memory::ReadMemoryFile(p);
    session->program.App().MainLoopPass();

    std::vector<forms::Form*> cells;
    for (forms::Form* f : session->program.App().Runtime().OpenForms()) {
        if (memory::IsCell(*f)) cells.push_back(f);
    }
    FUZZ_CHECK(static_cast<std::size_t>(p.MemoryCount - 1) == cells.size(),
               "MemoryCount %d with %zu cells", p.MemoryCount, cells.size());
    const bool failed = p.OpenFileNumbers.contains(2);
    FUZZ_CHECK(p.ArrangingMemory == (failed ? 1 : 0), "ArrangingMemory %d after a read that %s",
               p.ArrangingMemory, failed ? "failed" : "worked");
    if (failed) return 0;
    FUZZ_CHECK(p.OpenFileNumbers.empty(), "a file number stays in use");
    FUZZ_CHECK(expected.size() >= 6 + 2 * cells.size(), "%zu cells from %zu lines", cells.size(),
               expected.size());
    const auto count = measure::ToInt16(measure::ReadNumber(expected[4]));
    FUZZ_CHECK(count && *count == static_cast<std::int16_t>(cells.size()),
               "%zu cells where the file counts %d", cells.size(), count ? *count : -1);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        FUZZ_CHECK(cells[i]->Caption() == expected[6 + 2 * i] &&
                       memory::ValueLabel(*cells[i]).Caption() == expected[7 + 2 * i],
                   "cell %zu is not the lines %zu and %zu of the file", i, 7 + 2 * i, 8 + 2 * i);
        FUZZ_CHECK(memory::CellNumber(*cells[i]) == static_cast<std::int16_t>(i + 1),
                   "cell %zu has another number", i);
    }
    return 0;
}
