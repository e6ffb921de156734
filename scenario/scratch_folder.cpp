#include "scenario/scratch_folder.h"

#include <stdlib.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <vector>

namespace scenario {

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() {
    std::error_code error;
    fs::path base = fs::temp_directory_path(error);
    if (error) base = "/tmp";
    const std::string pattern = (base / "lathmark-scenario-XXXXXX").string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    if (::mkdtemp(name.data()) == nullptr) {
        error_ = std::strerror(errno);
        return;
    }
    path_ = name.data();
}

ScratchFolder::~ScratchFolder() {
    if (path_.empty()) return;
    std::error_code error;
    fs::remove_all(path_, error);
}

std::string ScratchFolder::Resolve(const std::string& name) const {
    const fs::path given(name);
    if (given.is_absolute()) return name;
    return (fs::path(path_) / given).string();
}

bool ScratchFolder::IsFolder(const std::string& path) const {
    if (path_.empty() || path.empty()) return false;
    // "/tmp/x/" and "/tmp/x/." name the folder as well as "/tmp/x".
    const auto normal = [](const std::string& p) {
        fs::path n = fs::path(p).lexically_normal();
        return n.has_filename() ? n : n.parent_path();
    };
    return normal(path) == normal(path_);
}

}  // namespace scenario
