// The events of the form Calculator that tie the keyboard and the window's
// activation to the keys and the tape.
#pragma once

#include <cstdint>

#include "core/program.h"

namespace core {

// The form sees every key first; only its KeyPress acts on a character.
void CalculatorKeyPress(Program& p, std::int16_t& keyAscii);
void CalculatorKeyUp(Program& p, std::int16_t& keyCode, int shift);
// Turns the tape on show to the calculator's and scrolls to its end.
void CalculatorActivate(Program& p);
// The same turn of the tape, without changing CurrentTape or scrolling.
void CalculatorGotFocus(Program& p);

}  // namespace core
