// The Colors menu: seven parts of the program, each recoloured at once from
// the desktop's colour dialog. The colours for memory cells and the
// converter are also kept for the windows still to come.
#pragma once

#include <cstdint>

#include "core/program.h"

namespace shell {

// The dialog always starts on pure red, not on the colour in use.
inline constexpr std::uint32_t kColorDialogStart = 255;

// The Click of mnuColor(index), 0 to 6.
void ColorClick(core::Program& p, std::int16_t index);

void WireColorMenu(core::Program& p);

}  // namespace shell
