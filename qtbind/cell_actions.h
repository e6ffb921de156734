// What a screen reader's actions on a memory cell do: exactly what the
// mouse does, run through the forms runtime, so that the cell's value and
// the lines on its tape come out as they do for a drag or a click.
//
//  - Add the readout: the readout pressed with the left button (its
//    MouseDown, and the drag that starts there), moved over the right half
//    of the cell's value and let go there.
//  - Subtract the readout: the same over the left half.
//  - Clear: the cell's value pressed (which makes the cell the active one,
//    as any press on it does) and let go on itself.
//  - Show tape: a click on the strip left of the value: the cell becomes
//    the active one, then its MouseDown, MouseUp and Click.
#pragma once

#include <functional>

namespace forms {
class Form;
}

namespace qtbind {

enum class CellAction { AddReadout, SubtractReadout, Clear, ShowTape };

// Runs the action on the cell; `afterEvent` runs after each step, as after
// each real event. Nothing happens while a drag or a modal window is under
// way, as the mouse can do nothing else then either.
void RunCellAction(forms::Form& cell, CellAction action, const std::function<void()>& afterEvent);

}  // namespace qtbind
