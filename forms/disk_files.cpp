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
#include <vector>

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

void SyncFolder(const fs::path& folder) {
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

}  // namespace

DiskFiles::DiskFiles(std::string programFolder) : programFolder_(std::move(programFolder)) {}

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

ssize_t DiskFiles::WriteSome(int fd, const char* data, std::size_t size) {
    return ::write(fd, data, size);
}

std::string DiskFiles::Replace(const std::string& path, const std::string& content) {
    if (path.empty()) return ErrorText(ENOENT);
    fs::path target(path);
    std::error_code error;
    // A file linked from elsewhere stays linked: the new file replaces the
    // one the link names.
    if (fs::is_symlink(target, error)) {
        fs::path real = fs::canonical(target, error);
        if (!error) target = std::move(real);
    }
    if (fs::is_directory(target, error)) return ErrorText(EISDIR);
    fs::path folder = target.parent_path();
    if (folder.empty()) folder = ".";

    // The old file's permissions stay; a new file gets the usual ones.
    mode_t mode = 0666 & ~[] {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        return mask;
    }();
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0 && S_ISREG(old.st_mode)) mode = old.st_mode & 07777;

    // A hidden name in the same folder, so that the rename stays on one file
    // system.
    const std::string pattern = (folder / ("." + target.filename().string() + ".XXXXXX")).string();
    std::vector<char> temporary(pattern.begin(), pattern.end());
    temporary.push_back('\0');
    const int fd = ::mkostemp(temporary.data(), O_CLOEXEC);
    if (fd < 0) return ErrorText(errno);

    int failure = 0;
    const char* data = content.data();
    std::size_t left = content.size();
    while (left > 0 && failure == 0) {
        const ssize_t wrote = WriteSome(fd, data, left);
        if (wrote < 0) {
            if (errno != EINTR) failure = errno;
            continue;
        }
        if (wrote == 0) failure = ENOSPC;
        data += wrote;
        left -= static_cast<std::size_t>(wrote);
    }
    if (failure == 0 && ::fchmod(fd, mode) != 0) failure = errno;
    if (failure == 0 && ::fsync(fd) != 0) failure = errno;
    if (::close(fd) != 0 && failure == 0) failure = errno;
    if (failure == 0 && ::rename(temporary.data(), target.c_str()) != 0) failure = errno;
    if (failure != 0) {
        ::unlink(temporary.data());
        return ErrorText(failure);
    }
    SyncFolder(folder);
    return "";
}

}  // namespace forms
