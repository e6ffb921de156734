// The two sizes of the calculator, 100% as designed and 75%. Going small
// scales every control; going back restores the design rectangles stored at
// the start, so that zooming to and fro never drifts. The form's width tells
// which size it has.
#pragma once

#include "core/program.h"

namespace shell {

// The width that parts the two sizes, and the widths of each.
inline constexpr double kZoomLine = 3000;
inline constexpr double kLargeWidth = 3615;
inline constexpr double kSmallWidth = 2745;

void ZoomSmallClick(core::Program& p);
void ZoomLargeClick(core::Program& p);
// The tape hangs on the calculator at its new width.
void TapeFollowsZoom(core::Program& p);

void WireZoom(core::Program& p);

}  // namespace shell
