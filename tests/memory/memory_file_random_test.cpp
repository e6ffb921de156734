// The reader against files it was never meant to see: random bytes, and
// good files cut short, with lines doubled or dropped and characters
// changed. Whatever the file, the read ends without harm and the counters
// agree with the cells on show. The run is fixed by its seed.
#include <random>
#include <string>
#include <vector>

#include "memory/memory_file.h"
#include "memory_file_fixture.h"

namespace {

class MemoryFileRandom : public MemoryFileApp {
  protected:
    std::string RandomBytes(std::mt19937& random) {
        std::uniform_int_distribution<int> length(0, 200), byte(0, 255);
        std::string bytes(static_cast<std::size_t>(length(random)), '\0');
        for (char& c : bytes) c = static_cast<char>(byte(random));
        return bytes;
    }

    std::string Mutated(std::mt19937& random) {
        static const std::vector<std::string> numbers = {
            " 0 ",    "-1",   " 32767 ", " 32768 ", "-32769",  " 1E+30 ", " 2.5 ",
            "&H7FFF", " 12 ", "",        "x",       " 40000 ", " 3",      " 1935"};
        std::vector<std::string> lines = {" 1635 ",   " 1980 ", " 3990 ", " 1040 ", " 3",  " 1935",
                                          "Memory 1", "0.",     "Ridge",  " 6'  ",  "Ünï", "-2'- "};
        std::uniform_int_distribution<int> kind(0, 4), pick(0, 1000);
        const int changes = 1 + pick(random) % 4;
        for (int c = 0; c < changes && !lines.empty(); ++c) {
            const std::size_t at = static_cast<std::size_t>(pick(random)) % lines.size();
            switch (kind(random)) {
                case 0:
                    lines[at] = numbers[static_cast<std::size_t>(pick(random)) % numbers.size()];
                    break;
                case 1:
                    lines.resize(at);
                    break;
                case 2:
                    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), lines[at]);
                    break;
                case 3:
                    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
                    break;
                default:
                    if (!lines[at].empty()) {
                        lines[at][static_cast<std::size_t>(pick(random)) % lines[at].size()] =
                            static_cast<char>(pick(random) % 256);
                    }
            }
        }
        std::string bytes;
        const char* ends[] = {"\r\n", "\n", "\r"};
        for (const auto& line : lines) bytes += line + ends[pick(random) % 3];
        if (!bytes.empty() && pick(random) % 4 == 0) bytes.pop_back();
        return bytes;
    }
};

TEST_F(MemoryFileRandom, NoFileHarmsTheReader) {
    std::mt19937 random(20261123);
    for (int round = 0; round < 400; ++round) {
        WriteBytes("r.mem", round % 3 == 0 ? RandomBytes(random) : Mutated(random));
        P().MemoryFileName = PathOf("r.mem");
        memory::ReadMemoryFile(P());
        app->MainLoopPass();

        const auto cells = Cells();
        ASSERT_EQ(static_cast<std::size_t>(P().MemoryCount - 1), cells.size()) << "round " << round;
        ASSERT_TRUE(P().ArrangingMemory == 0 || P().ArrangingMemory == 1);
        ASSERT_LE(P().MemoryCount, P().NextMemoryNumber);
        // A failed read kept its file number: give it back, as a new run
        // of the program would, so that the next file is read at all.
        P().OpenFileNumbers.erase(2);
        P().ArrangingMemory = 0;
    }
}

}  // namespace
