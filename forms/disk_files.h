// The user's files on the local disk, for the memory file.
//
// A file is read a line at a time from the disk (LineReader), never whole.
// Replace() never destroys an earlier file: it writes a new file beside it
// under a hidden name, flushes it to the disk and only then renames it into
// place, so that a full disk or a crash during the write leaves the old file
// whole. A failure is told in the platform's own words (strerror), with
// nothing left behind. The program's folder is the XDG data folder
// ($XDG_DATA_HOME, or ~/.local/share) with "lathmark" under it, unless one is
// given.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>

#include "forms/services.h"

namespace forms {

class DiskFiles : public FileStore {
  public:
    // An empty folder means the XDG data folder of the program.
    explicit DiskFiles(std::string programFolder = "");

    bool Exists(const std::string& path) const override;
    OpenResult OpenLines(const std::string& path) const override;
    std::string Replace(const std::string& path, const std::string& content) override;
    std::string ProgramFolder() override;

    // The XDG data folder of the program, whether it exists or not.
    static std::string DefaultProgramFolder();

  protected:
    // One write(2) of the new file's content: what it wrote, or -1 with
    // errno set. Tests put a full disk here.
    virtual ssize_t WriteSome(int fd, const char* data, std::size_t size);

  private:
    std::string programFolder_;
};

}  // namespace forms
