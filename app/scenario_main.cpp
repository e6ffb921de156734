// lathmark-scenario: runs a scenario file (or standard input with "-")
// against the program and prints what its commands report. With --gui the
// program runs behind its real Qt windows, and the scenario's actions reach
// it as input on them.
#include <fstream>
#include <iostream>
#include <string>

#include "scenario/runner.h"
#ifdef LATHMARK_SCENARIO_GUI
#include "scenario_gui/gui_runner.h"
#endif

int main(int argc, char** argv) {
    const bool gui = argc >= 2 && std::string(argv[1]) == "--gui";
    if (argc != (gui ? 3 : 2)) {
        std::cerr << "usage: lathmark-scenario [--gui] FILE | -\n";
        return 2;
    }
    const std::string path = argv[gui ? 2 : 1];
    std::ifstream file;
    if (path != "-") {
        file.open(path);
        if (!file) {
            std::cerr << "lathmark-scenario: cannot open " << path << "\n";
            return 2;
        }
    }
    std::istream& in = path == "-" ? std::cin : file;
    if (gui) {
#ifdef LATHMARK_SCENARIO_GUI
        return scenario::RunWithWindows(argc, argv, in, std::cout, std::cerr);
#else
        std::cerr << "lathmark-scenario: --gui needs the Qt windows, which this build leaves out\n";
        return 2;
#endif
    }
    scenario::Runner runner(std::cout, std::cerr);
    return runner.Run(in);
}
