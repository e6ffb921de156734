// The user at the file dialog, for the scenario tool: each dialog that the
// program shows is written down as the program asked for it, and answered
// as the scenario said beforehand with `dialog`: a file name, or Cancel.
// With nothing said, the user cancels. No window is ever shown, with or
// without the program's real windows.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "forms/services.h"

namespace scenario {

class FileDialogHost : public forms::FileDialogs {
  public:
    std::optional<std::string> Show(const forms::FileDialogRequest& request) override;

    // The path that the next dialog returns, or nothing for Cancel.
    void QueueAnswer(std::optional<std::string> path) { answers_.push_back(std::move(path)); }
    // The dialogs shown since the last call.
    std::vector<forms::FileDialogRequest> TakeShown();

  private:
    std::deque<std::optional<std::string>> answers_;
    std::vector<forms::FileDialogRequest> shown_;
};

}  // namespace scenario
