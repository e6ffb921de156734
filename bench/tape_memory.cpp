// Tape memory benchmark (see scripts/bench-tape.sh): the whole program,
// headless, makes 500 memory cells with New Memory and then sums on the
// calculator, Equal after Equal, until its tape stands at its last row,
// 32,767. What that costs is read from the kernel: the peak resident
// memory of the process (VmHWM), and where it stood once the program had
// started, before any cell.
//
// Prints one line: "<KiB at start> <KiB peak> <tape rows> <cells>".
#include <cstdio>
#include <string>

#include "bench/process_memory.h"
#include "shell/headless_program.h"

constexpr int kCells = 500;

int main() {
    shell::HeadlessProgram program;
    shell::LathmarkApp& app = program.App();
    core::Program& p = program.P();
    const long atStart = bench::StatusKiB("VmHWM");

    for (int i = 0; i < kCells; ++i) {
        p.Calculator->GetMenu("NewMemory").Click();
        app.MainLoopPass();
    }
    p.calc->Number[1]->Click();
    for (int press = 0; press < 20000 && p.tape->TapeRowCount()[0] < 32767; ++press) {
        p.calc->Equal.Click();
        app.MainLoopPass();
    }
    std::printf("%ld %ld %d %d\n", atStart, bench::StatusKiB("VmHWM"), p.tape->TapeRowCount()[0],
                p.MemoryCount - 1);
    return p.tape->TapeRowCount()[0] == 32767 && p.MemoryCount - 1 == kCells ? 0 : 1;
}
