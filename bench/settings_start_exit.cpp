// Settings benchmark (see scripts/bench-settings.sh): the whole program,
// headless, on the settings file given. Times the start, from the reading
// of the file to the end of the Load of the calculator and the first pass
// of the main loop, and Exit, from the menu's click until the Unload has
// written the settings and the program has ended.
//
// Prints one line: "<start ms> <exit ms> <entries read>".
#include <chrono>
#include <cstdio>
#include <memory>

#include "forms/settings_file.h"
#include "shell/headless_program.h"

namespace {

double MillisecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s SETTINGS-FILE\n", argv[0]);
        return 2;
    }
    const auto startBegins = std::chrono::steady_clock::now();
    forms::FileSettingsStore settings(argv[1]);
    shell::HeadlessProgram program(&settings);
    shell::LathmarkApp& app = program.App();
    const double startMs = MillisecondsSince(startBegins);
    const std::size_t entries = settings.Entries().size();

    const auto exitBegins = std::chrono::steady_clock::now();
    app.Program().Calculator->GetMenu("Exit").Click();
    const double exitMs = MillisecondsSince(exitBegins);

    std::printf("%.2f %.2f %zu\n", startMs, exitMs, entries);
    return app.Ended() ? 0 : 1;
}
