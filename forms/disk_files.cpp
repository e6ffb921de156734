#include "forms/disk_files.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

namespace forms {

namespace fs = std::filesystem;

namespace {

std::string ErrorText(int error) {
    return std::strerror(error);
}

// Makes the folder and any missing parents, private to the user as the XDG
// rules ask; 0 or the errno of the failure.
int MakeFolder(const fs::path& folder) {
    std::error_code error;
    if (fs::is_directory(folder, error)) return 0;
    fs::path partial;
    for (const auto& component : folder) {
        partial /= component;
        if (::mkdir(partial.c_str(), 0700) != 0 && errno != EEXIST) return errno;
    }
    return fs::is_directory(folder, error) ? 0 : ENOTDIR;
}

}  // namespace

DiskFiles::DiskFiles(std::string programFolder, FileSystemCalls& calls)
    : programFolder_(std::move(programFolder)), calls_(&calls) {}

std::string DiskFiles::DefaultProgramFolder() {
    const fs::path tail("lathmark");
    // The XDG rules say a relative XDG_DATA_HOME is invalid and is ignored.
    if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data != '\0') {
        const fs::path base(data);
        if (base.is_absolute()) return (base / tail).string();
    }
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        return (fs::path(home) / ".local" / "share" / tail).string();
    }
    if (const passwd* user = ::getpwuid(::getuid());
        user != nullptr && user->pw_dir != nullptr && *user->pw_dir != '\0') {
        return (fs::path(user->pw_dir) / ".local" / "share" / tail).string();
    }
    return fs::current_path().string();
}

std::string DiskFiles::ProgramFolder() {
    if (programFolder_.empty()) programFolder_ = DefaultProgramFolder();
    MakeFolder(programFolder_);
    return programFolder_;
}

bool DiskFiles::Exists(const std::string& path) const {
    std::error_code error;
    return !path.empty() && fs::is_regular_file(path, error);
}

FileStore::OpenResult DiskFiles::OpenLines(const std::string& path) const {
    OpenResult result;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        result.error = ErrorText(errno);
        return result;
    }
    result.lines = std::make_unique<FileLineReader>(fd);
    return result;
}

std::string DiskFiles::Replace(const std::string& path, const std::string& content) {
    if (path.empty()) return ErrorText(ENOENT);
    // A new file gets the usual permissions.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    const int failure = ReplaceFile(path, content, 0666 & ~mask, *calls_);
    return failure == 0 ? "" : ErrorText(failure);
}

}  // namespace forms
