// lathmark-scenario: runs a scenario file (or standard input with "-")
// against the program and prints what its commands report.
#include <fstream>
#include <iostream>
#include <string>

#include "scenario/runner.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: lathmark-scenario FILE | -\n";
        return 2;
    }
    const std::string path = argv[1];
    scenario::Runner runner(std::cout, std::cerr);
    if (path == "-") return runner.Run(std::cin);
    std::ifstream file(path);
    if (!file) {
        std::cerr << "lathmark-scenario: cannot open " << path << "\n";
        return 2;
    }
    return runner.Run(file);
}
