// A folder of a test's own on the disk, and the plain file reads and writes
// that the tests of saved files check their outcome with.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <system_error>
#include <vector>

namespace testfiles {

namespace fs = std::filesystem;

// A fresh folder, removed with everything in it afterwards, rights that a
// test took away included.
class ScratchFolder {
  public:
    explicit ScratchFolder(const char* prefix = "lathmark-test") {
        std::string pattern =
            (fs::temp_directory_path() / (std::string(prefix) + "-XXXXXX")).string();
        std::vector<char> name(pattern.begin(), pattern.end());
        name.push_back('\0');
        if (::mkdtemp(name.data()) != nullptr) path_ = name.data();
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        if (path_.empty()) return;
        std::error_code error;
        // Give back the rights a test took away, or the removal fails.
        for (auto it = fs::recursive_directory_iterator(path_, error);
             !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
            if (!it->is_symlink(error)) {
                fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, error);
            }
        }
        fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, error);
        fs::remove_all(path_, error);
    }
    const fs::path& path() const { return path_; }
    fs::path operator/(const std::string& name) const { return path_ / name; }

  private:
    fs::path path_;
};

inline void WriteBytes(const fs::path& file, const std::string& bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << bytes;
}

inline std::string ReadBytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The names of what a folder holds.
inline std::set<std::string> NamesIn(const fs::path& folder) {
    std::set<std::string> names;
    std::error_code error;
    for (const auto& item : fs::directory_iterator(folder, error)) {
        names.insert(item.path().filename().string());
    }
    return names;
}

}  // namespace testfiles
