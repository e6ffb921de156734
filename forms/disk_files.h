// The user's files on the local disk, for the memory file.
//
// A file is read a line at a time from the disk (LineReader), never whole.
// Replace() never destroys an earlier file and leaves no temporary behind
// (see ReplaceFile): the new content is written and flushed to the disk
// before it takes the old file's place. A failure is told in the platform's
// own words (strerror). The program's folder is the XDG data folder
// ($XDG_DATA_HOME, or ~/.local/share) with "lathmark" under it, unless one
// is given.
#pragma once

#include <string>

#include "forms/file_replace.h"
#include "forms/services.h"

namespace forms {

class DiskFiles : public FileStore {
  public:
    // An empty folder means the XDG data folder of the program. Saves go
    // through `calls`, which tests wrap.
    explicit DiskFiles(std::string programFolder = "", FileSystemCalls& calls = SystemFileCalls());

    bool Exists(const std::string& path) const override;
    OpenResult OpenLines(const std::string& path) const override;
    std::string Replace(const std::string& path, const std::string& content) override;
    std::string ProgramFolder() override;

    // The XDG data folder of the program, whether it exists or not.
    static std::string DefaultProgramFolder();

  private:
    std::string programFolder_;
    FileSystemCalls* calls_;
};

}  // namespace forms
