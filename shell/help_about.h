// The small things around the calculator: its help (the user's guide), the
// About box and the button there that starts the desktop's system
// information tool.
#pragma once

#include <string>

#include "core/program.h"

namespace shell {

// The guide the program ships, found from the folder of its executable:
// an installed guide (../share/lathmark/guide/lathmark.html) first, the one
// beside a build (guide/lathmark.html) second; the second when neither is
// there, so that the help can say what is missing. Ends in one NUL, the end
// of the text that the help reads.
std::string HelpFilePathAtLoad(core::Program& p);

// Help, Contents: the guide at its contents, in the program's help window.
void MenuHelpContentsClick(core::Program& p);
// Help, About: the About box, modal and in front of everything; the windows
// that float go back on top afterwards.
void MenuAboutClick(core::Program& p);
void AboutFormLoad(forms::Form& about);
void AboutOkClick(core::Program& p, forms::Form& about);
void AboutSysInfoClick(core::Program& p);

// The texts of the About box.
inline constexpr const char* kAppTitle = "Lathmark Calculator";
inline constexpr int kVersionMajor = 3, kVersionMinor = 0, kVersionRevision = 4;
inline constexpr const char* kNoSystemInfo = "System Information Is Unavailable At This Time";

void WireHelpAbout(core::Program& p);

}  // namespace shell
