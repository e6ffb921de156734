// The calculator's one common dialog, CMDialog1, shared by the memory file,
// the colours and printing. Its settings stay as the last use left them:
// nothing resets them between uses.
#pragma once

#include <cstdint>
#include <string>

namespace core {

struct CommonDialog {
    std::string DialogTitle;
    bool CancelError = false;
    std::string InitDir;
    std::string DefaultExt;
    std::string Filter;
    int FilterIndex = 0;
    int Flags = 0;
    std::string FileName;
    std::uint32_t Color = 0;  // red in the low byte
};

}  // namespace core
