// What this process holds in memory, as the kernel tells it.
#pragma once

#include <fstream>
#include <string>

namespace bench {

// A field of /proc/self/status in KiB: "VmRSS" now, "VmHWM" at its peak.
inline long StatusKiB(const std::string& field) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind(field + ":", 0) == 0) return std::stol(line.substr(field.size() + 1));
    }
    return 0;
}

}  // namespace bench
