// Putting new content in place of a file, whole or not at all, so that a
// full disk, a crash or a kill during the save leaves the earlier file as it
// was, and no temporary file behind for good. The memory file and the
// settings file are both saved this way.
//
// The content is written into a file of the target's folder that has no
// name yet (O_TMPFILE) and flushed to the disk. Only then is it given a
// name: the target's own when there is no file yet, otherwise a temporary
// one that is at once renamed over the target. The folder is flushed last,
// so that the new name is on the disk too. A program killed while it
// writes leaves nothing: the kernel frees a file that has no name.
//
// Where the file system makes no files without a name (it refuses
// O_TMPFILE) or /proc is missing to link one in by, the content is written
// under a temporary name from the start. A temporary is always named by the
// program's own rule: a dot, the target's name, a dot and six letters or
// digits (".Lathmark.conf.a1B2c3"). A save holds its temporary locked
// (flock) for as long as it has that name, and each save first removes the
// temporaries of its target that nobody holds: what a killed save left.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace forms {

// The calls to the system that a replacement makes, each as the system
// makes it (-1 and errno on a failure): tests wrap them to count them, to
// fail one, or to stop a save half way.
class FileSystemCalls {
  public:
    virtual ~FileSystemCalls() = default;
    virtual int OpenAt(int folder, const char* path, int flags, mode_t mode);
    virtual ssize_t Write(int fd, const void* data, std::size_t size);
    virtual int Fsync(int fd);
    virtual int LinkAt(int fromFolder, const char* from, int toFolder, const char* to, int flags);
    virtual int RenameAt(int fromFolder, const char* from, int toFolder, const char* to);
    virtual int UnlinkAt(int folder, const char* path);
};

// The system's own calls, unwrapped.
FileSystemCalls& SystemFileCalls();

// Puts `content` in place of the file at `target`: 0, or the errno of the
// failure, which leaves the earlier file as it was. A target that is a
// symbolic link stays one: the file it names is replaced. An earlier file
// keeps its permissions; a new one gets `newFileMode`.
int ReplaceFile(const std::filesystem::path& target, std::string_view content, mode_t newFileMode,
                FileSystemCalls& calls = SystemFileCalls());

// Whether `name` is a temporary of the program's naming for the file called
// `target` (both names without their folder).
bool IsTemporaryName(std::string_view target, std::string_view name);

}  // namespace forms
