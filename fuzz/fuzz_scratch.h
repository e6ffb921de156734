// A scratch folder for one fuzzing process, on a memory file system where
// there is one (the settings file is flushed to the disk at each save), and
// removed when the process ends.
#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

inline const std::filesystem::path& FuzzScratchFolder() {
    static const std::filesystem::path folder = [] {
        std::string base = ::access("/dev/shm", W_OK) == 0
                               ? std::string("/dev/shm")
                               : std::filesystem::temp_directory_path().string();
        std::string pattern = base + "/lathmark-fuzz.XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) std::abort();
        std::atexit([] {
            std::error_code error;
            std::filesystem::remove_all(FuzzScratchFolder(), error);
        });
        return std::filesystem::path(pattern);
    }();
    return folder;
}
