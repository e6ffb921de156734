// The one read of the settings at the start and the one write at the end.
// Application "Lathmark", sections "Settings" and "Colors".
#pragma once

#include "core/program.h"

namespace shell {

// The display options as read, before they act.
struct SavedOptions {
    bool Zoom = false;
    bool Accuracy = false;
    bool Converter = false;
    bool ShowKeys = false;
    bool ShowTape = false;
    std::int32_t ConvTop = 0, ConvLeft = 0, MDITop = 0, MDILeft = 0;
};

// Reads "Settings" into the options, CalcTop and CalcLeft, and moves
// MDIForm1 to its place (which loads it, hidden).
SavedOptions ReadSettingsSection(core::Program& p);
// Reads "Colors" and applies each colour at once.
void ReadColorsSection(core::Program& p);
// Writes both sections from the windows as they stand, and has the store
// put them on the disk at once.
void WriteSettings(core::Program& p);

}  // namespace shell
