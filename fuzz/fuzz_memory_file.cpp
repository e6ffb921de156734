// The memory file reader on any bytes, in a whole program started headless.
// A program whose last read worked takes the next file as a user's second
// Open would, after the Erase All that every Open begins with; a read that
// failed leaves file number 2 in use and ArrangingMemory at 1, which refuses
// every later Open, so the next input gets a program started afresh. (Run
// alone, an input always meets a fresh program; a failure prints the files
// its program read before, to be read first for the repetition.) Starting a
// program costs far more than reading a file, and this keeps the long runs
// affordable.
// Whatever the file, the read ends and:
//  - MemoryCount - 1 is the number of open cells, and their numbers are
//    1, 2, 3 ... in the order of the list of open forms;
//  - a read that got to the end leaves ArrangingMemory at 0 and no file
//    number in use, and the file written of its cells reads back as the
//    same names and values; a read that failed keeps file number 2 and
//    ArrangingMemory at 1.
#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/fuzz_check.h"
#include "measure/read_number.h"
#include "memory/cells.h"
#include "memory/memory_file.h"
#include "shell/headless_program.h"

namespace {

// The user's files, held in memory.
class MemoryFiles : public forms::FileStore {
  public:
    bool Exists(const std::string& path) const override { return files.contains(path); }
    OpenResult OpenLines(const std::string& path) const override {
        auto it = files.find(path);
        if (it == files.end()) return {nullptr, "No such file or directory"};
        return {std::make_unique<forms::TextLineReader>(it->second), ""};
    }
    std::string Replace(const std::string& path, const std::string& content) override {
        files[path] = content;
        return "";
    }
    std::string ProgramFolder() override { return "/lathmark"; }

    std::map<std::string, std::string> files;
};

struct Cell {
    std::string name, value;
    std::int16_t number;
};

constexpr std::size_t kFilesKept = 4;

struct Session {
    MemoryFiles files;
    shell::HeadlessProgram program{nullptr, &files};

    // The files read, the current one last; the oldest go once there are
    // enough of them to tell what a failure met.
    std::vector<std::string> filesRead;

    // Reads the file of that content, as Open does once the dialog has
    // chosen it.
    void Read(const std::string& content) {
        if (filesRead.size() > kFilesKept) filesRead.erase(filesRead.begin());
        filesRead.push_back(content);
        core::Program& p = program.P();
        files.files["/lathmark/cells.mem"] = content;
        p.MemoryFileName = "/lathmark/cells.mem";
        memory::ReadMemoryFile(p);
        program.App().MainLoopPass();
    }

    std::vector<Cell> Cells() {
        std::vector<Cell> cells;
        for (forms::Form* f : program.App().Runtime().OpenForms()) {
            if (!memory::IsCell(*f)) continue;
            cells.push_back({f->Caption(), memory::ValueLabel(*f).Caption(),
                             memory::CellNumber(*f).value_or(-1)});
        }
        return cells;
    }
};

// The program for the next read: the one given, if its last read worked,
// or one started afresh.
Session& Ready(std::unique_ptr<Session>& session) {
    if (!session || session->program.P().OpenFileNumbers.contains(2)) {
        session.reset();
        session = std::make_unique<Session>();
    }
    return *session;
}

std::unique_ptr<Session> firstSession, secondSession;

void PrintFilesReadBefore() {
    for (const auto* session : {firstSession.get(), secondSession.get()}) {
        if (!session) continue;
        std::fprintf(stderr, "%s program read before this file (oldest first):\n",
                     session == firstSession.get() ? "the first" : "the second");
        for (std::size_t i = 0; i + 1 < session->filesRead.size(); ++i) {
            std::fprintf(stderr, "---\n%s\n", session->filesRead[i].c_str());
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzCheckContext = PrintFilesReadBefore;
    const std::string content(reinterpret_cast<const char*>(data), size);
    Session& first = Ready(firstSession);
    first.Read(content);
    core::Program& p = first.program.P();
    const auto cells = first.Cells();

    FUZZ_CHECK(static_cast<std::size_t>(p.MemoryCount - 1) == cells.size(),
               "MemoryCount %d with %zu cells", p.MemoryCount, cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        FUZZ_CHECK(cells[i].number == static_cast<std::int16_t>(i + 1), "cell %zu has number %d", i,
                   cells[i].number);
    }
    const bool failed = p.OpenFileNumbers.contains(2);
    FUZZ_CHECK(p.ArrangingMemory == (failed ? 1 : 0), "ArrangingMemory %d after a read that %s",
               p.ArrangingMemory, failed ? "failed" : "worked");
    if (failed) return 0;
    FUZZ_CHECK(p.OpenFileNumbers.empty(), "a file number stays in use");

    Session& second = Ready(secondSession);
    const std::string written = memory::MemoryFileText(p);
    second.Read(written);
    if (second.program.P().OpenFileNumbers.contains(2)) {
        // The writer keeps the memory window's geometry as it is and the
        // reader squeezes it into 16 bits: a window grown beyond 32767 twips
        // is saved but fails on reading, and nothing else may fail.
        std::size_t at = 0;
        bool tooLarge = false;
        for (int line = 0; line < 6 && at < written.size(); ++line) {
            const std::size_t end = written.find("\r\n", at);
            const double v = measure::ReadNumber(written.substr(at, end - at));
            tooLarge = tooLarge || v > 32767.5 || v < -32768.5;
            at = end + 2;
        }
        FUZZ_CHECK(tooLarge, "the file written of a good read fails:\n%s", written.c_str());
        return 0;
    }
    const auto back = second.Cells();
    FUZZ_CHECK(back.size() == cells.size(), "%zu cells written, %zu read back", cells.size(),
               back.size());
    for (std::size_t i = 0; i < back.size(); ++i) {
        FUZZ_CHECK(back[i].name == cells[i].name && back[i].value == cells[i].value,
                   "cell %zu: '%s' '%s' written, '%s' '%s' read back", i, cells[i].name.c_str(),
                   cells[i].value.c_str(), back[i].name.c_str(), back[i].value.c_str());
    }
    return 0;
}
