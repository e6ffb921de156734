// What the tapes cost in memory: a whole program, headless, with 500 memory
// cells and a calculator tape taken to its last row, 32,767. Every
// allocation of this test program goes through a counter, so the bytes the
// store holds are measured, not estimated. The text written is under 1 MB;
// the tapes may take some more for their rows, but far less than the 80 MB
// allowed here.
#include <gtest/gtest.h>
#include <malloc.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#include "shell/headless_program.h"

namespace {

std::atomic<long long> liveBytes{0};

void* Allocate(std::size_t size) {
    void* p = std::malloc(size == 0 ? 1 : size);
    if (p == nullptr) throw std::bad_alloc();
    liveBytes += static_cast<long long>(::malloc_usable_size(p));
    return p;
}

void Free(void* p) noexcept {
    if (p == nullptr) return;
    liveBytes -= static_cast<long long>(::malloc_usable_size(p));
    std::free(p);
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* p) noexcept {
    Free(p);
}
void operator delete[](void* p) noexcept {
    Free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    Free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
    Free(p);
}

namespace {

constexpr long long kMiB = 1024 * 1024;

TEST(TapeMemory, FiveHundredCellsAndAFullCalculatorTapeStayWellUnderEightyMegabytes) {
    shell::HeadlessProgram program;
    shell::LathmarkApp& app = program.App();
    core::Program& p = program.P();
    const long long started = liveBytes.load();

    for (int i = 0; i < 500; ++i) {
        p.Calculator->GetMenu("NewMemory").Click();
        app.MainLoopPass();
    }
    ASSERT_EQ(p.MemoryCount, 501);
    const long long withCells = liveBytes.load();

    // One entry and Equal after Equal, as an adding machine sums: three
    // lines a press, until the calculator's tape stands at its last row.
    p.calc->Number[1]->Click();
    for (int press = 0; press < 20000 && p.tape->TapeRowCount()[0] < 32767; ++press) {
        p.calc->Equal.Click();
    }
    app.MainLoopPass();
    ASSERT_EQ(p.tape->TapeRowCount()[0], 32767);
    const forms::Grid& grid = p.tape->Grid1();
    // The grid keeps ten rows below the tape only while that fits 16 bits.
    EXPECT_EQ(grid.Rows(), 32765);
    EXPECT_EQ(grid.Cols(), 501);
    const long long withTape = liveBytes.load();

    const long long total = withTape - started;
    RecordProperty("tapeBytes", std::to_string(total));
    std::printf("500 cells: %.2f MiB; and a tape of 32,767 lines: %.2f MiB in all\n",
                static_cast<double>(withCells - started) / kMiB, static_cast<double>(total) / kMiB);
    EXPECT_LT(total, 80 * kMiB) << "the cells and their tapes hold " << total / kMiB << " MiB";
    // The tape of 32,767 lines costs what its lines do, with the rows
    // that hold them: not every other tape made as long.
    EXPECT_LT(withTape - withCells, 8 * kMiB);

    // What the tapes hold is still all there, and a cell's tape beyond its
    // own lines reads as empty.
    int lines = 0;
    for (int row = 1; row < grid.Rows(); ++row) {
        const std::string& line = grid.Cell(row, 0);
        if (!line.empty() && line.back() == ' ') ++lines;
    }
    EXPECT_EQ(lines, 32764);
    EXPECT_EQ(grid.Cell(1, 0), "1 ");
    EXPECT_EQ(grid.Cell(32764, 500), "");
    EXPECT_EQ(grid.Cell(1, 250), "");
}

}  // namespace
