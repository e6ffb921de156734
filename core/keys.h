// The Clicks of the key pad: entry keys edit the caption of Readout,
// operator keys choose the pending operation, and Square, SquareRoot and Pi
// evaluate at once.
#pragma once

#include "core/program.h"

namespace core {

inline constexpr const char* kPiText = "3.14159265";

void NumberClick(Program& p, int index);
void DecimalClick(Program& p);
void FootClick(Program& p);
void InchClick(Program& p);
void SpacebarClick(Program& p);
void BackspaceClick(Program& p);
void CancelClick(Program& p);
void CancelEntryClick(Program& p);

void PlusClick(Program& p);
void MinusClick(Program& p);
void MultiplyClick(Program& p);
void DivideClick(Program& p);

void SquareClick(Program& p);
void SquareRootClick(Program& p);
void PiClick(Program& p);

// The text surgery of Backspace, shared by the button and the keyboard.
std::string WithoutLastKey(const std::string& text);

}  // namespace core
