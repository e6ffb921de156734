// The program's windows as they were drawn: every form with its controls,
// captions, places and sizes in twips, and its menus, in their design state.
// Behaviour is hung on them elsewhere.
#pragma once

#include "forms/runtime.h"

namespace shell {

inline constexpr std::uint32_t kTeal = 8421376;        // &H808000
inline constexpr std::uint32_t kPaleYellow = 8454143;  // &H80FFFF
inline constexpr std::uint32_t kWhite = 0xFFFFFF;
inline constexpr std::uint32_t kRed = 255;
inline constexpr std::uint32_t kButtonFace = 0xC0C0C0;
inline constexpr std::uint32_t kAppWorkspace = 0x808080;

forms::Form& MakeCalculator(forms::Runtime& runtime);
forms::Form& MakeTapeForm(forms::Runtime& runtime);
forms::Form& MakeConverter(forms::Runtime& runtime);
forms::Form& MakeMemoryParent(forms::Runtime& runtime);
// One per memory cell.
forms::Form& MakeMemoryCell(forms::Runtime& runtime);
forms::Form& MakeInputPrompt(forms::Runtime& runtime);
forms::Form& MakeAboutBox(forms::Runtime& runtime);

}  // namespace shell
