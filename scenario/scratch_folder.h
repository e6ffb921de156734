// A folder of the scenario's own for one run: made fresh and empty under the
// system's temporary folder when the run starts, and removed with everything
// in it when the run is over. The program keeps its files there, and the
// scenario's file names count from it.
#pragma once

#include <string>

namespace scenario {

class ScratchFolder {
  public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    // The folder's absolute path; empty when it could not be made.
    const std::string& Path() const { return path_; }
    // Why it could not be made, in the platform's words.
    const std::string& Error() const { return error_; }

    // A name as the scenario gives it: an absolute path as it is, any other
    // inside the folder.
    std::string Resolve(const std::string& name) const;
    // Whether `path` names the folder itself.
    bool IsFolder(const std::string& path) const;

  private:
    std::string path_;
    std::string error_;
};

}  // namespace scenario
