#include "forms/file_replace.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <random>
#include <string>
#include <system_error>

namespace forms {

namespace fs = std::filesystem;

int FileSystemCalls::OpenAt(int folder, const char* path, int flags, mode_t mode) {
    return ::openat(folder, path, flags, mode);
}

ssize_t FileSystemCalls::Write(int fd, const void* data, std::size_t size) {
    return ::write(fd, data, size);
}

int FileSystemCalls::Fsync(int fd) {
    return ::fsync(fd);
}

int FileSystemCalls::LinkAt(int fromFolder, const char* from, int toFolder, const char* to,
                            int flags) {
    return ::linkat(fromFolder, from, toFolder, to, flags);
}

int FileSystemCalls::RenameAt(int fromFolder, const char* from, int toFolder, const char* to) {
    return ::renameat(fromFolder, from, toFolder, to);
}

int FileSystemCalls::UnlinkAt(int folder, const char* path) {
    return ::unlinkat(folder, path, 0);
}

FileSystemCalls& SystemFileCalls() {
    static FileSystemCalls calls;
    return calls;
}

namespace {

constexpr std::string_view kNameLetters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr std::size_t kNameTail = 6;
constexpr int kNameTries = 100;

bool IsNameLetter(char c) {
    return kNameLetters.find(c) != std::string_view::npos;
}

std::string TemporaryName(const std::string& target) {
    static std::mt19937 random{std::random_device{}() ^ static_cast<unsigned>(::getpid())};
    std::uniform_int_distribution<std::size_t> pick(0, kNameLetters.size() - 1);
    std::string name = "." + target + ".";
    for (std::size_t i = 0; i < kNameTail; ++i) name += kNameLetters[pick(random)];
    return name;
}

// Closes a descriptor at the end of its scope.
class Descriptor {
  public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Reset(); }
    void Reset(int fd = -1) {
        if (fd_ >= 0) ::close(fd_);
        fd_ = fd;
    }
    int Get() const { return fd_; }

  private:
    int fd_;
};

// Whether `name` in `folder` is still the file open as `fd`.
bool StillNamed(int fd, int folder, const std::string& name) {
    struct stat open {
    }, named{};
    return ::fstat(fd, &open) == 0 &&
           ::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

// Removes the temporaries of `target` that no save holds: a save holds its
// temporary locked while it has a name, so one that can be locked was left
// by a save that was killed.
void RemoveLeftovers(int folder, const std::string& target, FileSystemCalls& calls) {
    const int listing = ::dup(folder);
    if (listing < 0) return;
    DIR* dir = ::fdopendir(listing);
    if (dir == nullptr) {
        ::close(listing);
        return;
    }
    ::rewinddir(dir);
    while (const dirent* entry = ::readdir(dir)) {
        const std::string name = entry->d_name;
        if (!IsTemporaryName(target, name)) continue;
        Descriptor fd(
            ::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (fd.Get() < 0) continue;
        struct stat info {};
        if (::fstat(fd.Get(), &info) != 0 || !S_ISREG(info.st_mode)) continue;
        if (::flock(fd.Get(), LOCK_EX | LOCK_NB) != 0) continue;
        if (StillNamed(fd.Get(), folder, name)) calls.UnlinkAt(folder, name.c_str());
    }
    ::closedir(dir);
}

// Writes the whole content, fixes the permissions and flushes the file to
// the disk: 0 or the errno of the failure.
int WriteDurably(int fd, std::string_view content, mode_t mode, FileSystemCalls& calls) {
    while (!content.empty()) {
        const ssize_t wrote = calls.Write(fd, content.data(), content.size());
        if (wrote < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        if (wrote == 0) return ENOSPC;
        content.remove_prefix(static_cast<std::size_t>(wrote));
    }
    if (::fchmod(fd, mode) != 0) return errno;
    if (calls.Fsync(fd) != 0) return errno;
    return 0;
}

// Renames the temporary over the target, or takes it away again.
int RenameInto(int folder, const std::string& temporary, const std::string& target,
               FileSystemCalls& calls) {
    if (calls.RenameAt(folder, temporary.c_str(), folder, target.c_str()) == 0) return 0;
    const int failure = errno;
    calls.UnlinkAt(folder, temporary.c_str());
    return failure;
}

// The content through a file without a name. ENOENT when it cannot be
// linked in for want of /proc; EOPNOTSUPP (or what the system says) when
// the file system makes no such files: the caller then takes a named one.
int ReplaceThroughUnnamedFile(int folder, const std::string& target, std::string_view content,
                              mode_t mode, FileSystemCalls& calls, bool& unsupported) {
    Descriptor fd(calls.OpenAt(folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
    if (fd.Get() < 0) {
        const int failure = errno;
        unsupported = failure == EOPNOTSUPP || failure == EISDIR || failure == EINVAL;
        return failure;
    }
    ::flock(fd.Get(), LOCK_EX);
    if (const int failure = WriteDurably(fd.Get(), content, mode, calls); failure != 0) {
        return failure;
    }
    const std::string self = "/proc/self/fd/" + std::to_string(fd.Get());
    struct stat existing {};
    if (::fstatat(folder, target.c_str(), &existing, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT) {
        // No file yet: the new one takes its name at once.
        if (calls.LinkAt(AT_FDCWD, self.c_str(), folder, target.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            return 0;
        }
        if (errno != EEXIST) {
            unsupported = errno == ENOENT;
            return errno;
        }
    }
    for (int attempt = 0; attempt < kNameTries; ++attempt) {
        const std::string temporary = TemporaryName(target);
        if (calls.LinkAt(AT_FDCWD, self.c_str(), folder, temporary.c_str(), AT_SYMLINK_FOLLOW) ==
            0) {
            return RenameInto(folder, temporary, target, calls);
        }
        if (errno != EEXIST) {
            unsupported = errno == ENOENT;
            return errno;
        }
    }
    return EEXIST;
}

// The content under a temporary name from the start.
int ReplaceThroughNamedFile(int folder, const std::string& target, std::string_view content,
                            mode_t mode, FileSystemCalls& calls) {
    for (int attempt = 0; attempt < kNameTries; ++attempt) {
        const std::string temporary = TemporaryName(target);
        Descriptor fd(calls.OpenAt(folder, temporary.c_str(),
                                   O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (fd.Get() < 0) {
            if (errno == EEXIST) continue;
            return errno;
        }
        ::flock(fd.Get(), LOCK_EX);
        // Another save may have taken it for a leftover between the making
        // and the lock: then it is made again under a new name.
        if (!StillNamed(fd.Get(), folder, temporary)) continue;
        if (const int failure = WriteDurably(fd.Get(), content, mode, calls); failure != 0) {
            calls.UnlinkAt(folder, temporary.c_str());
            return failure;
        }
        // The lock is held until the temporary has become the target.
        return RenameInto(folder, temporary, target, calls);
    }
    return EEXIST;
}

}  // namespace

bool IsTemporaryName(std::string_view target, std::string_view name) {
    if (name.size() != target.size() + 2 + kNameTail) return false;
    if (name.front() != '.' || name.substr(1, target.size()) != target) return false;
    if (name[target.size() + 1] != '.') return false;
    for (char c : name.substr(target.size() + 2)) {
        if (!IsNameLetter(c)) return false;
    }
    return true;
}

int ReplaceFile(const fs::path& file, std::string_view content, mode_t newFileMode,
                FileSystemCalls& calls) {
    if (file.empty() || !file.has_filename()) return ENOENT;
    fs::path target = file;
    std::error_code error;
    // A file linked from elsewhere (a dotfiles folder) stays linked: the new
    // file replaces the one the link names.
    if (fs::is_symlink(target, error)) {
        fs::path real = fs::canonical(target, error);
        if (!error) target = std::move(real);
    }
    if (fs::is_directory(target, error)) return EISDIR;
    fs::path folder = target.parent_path();
    if (folder.empty()) folder = ".";
    const std::string name = target.filename().string();

    Descriptor folderFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A folder the user may write in but not list still takes the file:
    // then no leftover is looked for and the folder is not flushed.
    if (folderFd.Get() < 0 && errno == EACCES) {
        folderFd.Reset(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    if (folderFd.Get() < 0) return errno;

    mode_t mode = newFileMode;
    struct stat old {};
    if (::fstatat(folderFd.Get(), name.c_str(), &old, 0) == 0 && S_ISREG(old.st_mode)) {
        mode = old.st_mode & 07777;
    }

    RemoveLeftovers(folderFd.Get(), name, calls);
    bool unsupported = false;
    int failure =
        ReplaceThroughUnnamedFile(folderFd.Get(), name, content, mode, calls, unsupported);
    if (failure != 0 && unsupported) {
        failure = ReplaceThroughNamedFile(folderFd.Get(), name, content, mode, calls);
    }
    if (failure != 0) return failure;
    // A folder that refuses to be flushed still holds the new name in the
    // usual case: that fails nothing.
    calls.Fsync(folderFd.Get());
    return 0;
}

}  // namespace forms
