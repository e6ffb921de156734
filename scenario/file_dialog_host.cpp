#include "scenario/file_dialog_host.h"

namespace scenario {

std::optional<std::string> FileDialogHost::Show(const forms::FileDialogRequest& request) {
    shown_.push_back(request);
    if (answers_.empty()) return std::nullopt;
    std::optional<std::string> answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
}

std::vector<forms::FileDialogRequest> FileDialogHost::TakeShown() {
    std::vector<forms::FileDialogRequest> taken;
    taken.swap(shown_);
    return taken;
}

}  // namespace scenario
