// The desktop's colour dialog for the Colors menu: Qt's own widget dialog,
// application-modal and in front of the program's windows, which all float
// above other programs.
#pragma once

#include <cstdint>
#include <optional>

#include "forms/services.h"

namespace qtbind {

class QtColorDialogs : public forms::ColorDialogs {
  public:
    // Needs a QApplication.
    std::optional<std::uint32_t> Show(std::uint32_t initial) override;
};

}  // namespace qtbind
