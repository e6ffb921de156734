// The user at the colour dialog, for the scenario tool: each dialog that the
// program shows is written down with the colour it starts on, and answered
// as the scenario said beforehand with `color`: a colour, or Cancel. With
// nothing said, the user cancels. No window is ever shown.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "forms/services.h"

namespace scenario {

class ColorDialogHost : public forms::ColorDialogs {
  public:
    std::optional<std::uint32_t> Show(std::uint32_t initial) override;

    // The colour that the next dialog returns, or nothing for Cancel.
    void QueueAnswer(std::optional<std::uint32_t> color) { answers_.push_back(color); }
    // The starting colours of the dialogs shown since the last call.
    std::vector<std::uint32_t> TakeShown();

  private:
    std::deque<std::optional<std::uint32_t>> answers_;
    std::vector<std::uint32_t> shown_;
};

}  // namespace scenario
