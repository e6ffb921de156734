#include "scenario/color_dialog_host.h"

namespace scenario {

std::optional<std::uint32_t> ColorDialogHost::Show(std::uint32_t initial) {
    shown_.push_back(initial);
    if (answers_.empty()) return std::nullopt;
    const std::optional<std::uint32_t> answer = answers_.front();
    answers_.pop_front();
    return answer;
}

std::vector<std::uint32_t> ColorDialogHost::TakeShown() {
    std::vector<std::uint32_t> taken;
    taken.swap(shown_);
    return taken;
}

}  // namespace scenario
