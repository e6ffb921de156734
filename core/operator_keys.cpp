// Operator keys only choose what the next Equal does; none of them
// evaluates. Minus and Divide also write the sign and the fraction bar.
#include "core/evaluate.h"
#include "core/keys.h"
#include "core/text_marks.h"

namespace core {

namespace {

// Taking an operation: the symbol, an empty Readout for the second operand,
// the code, in this order.
void TakeOperation(Program& p, const char* symbol, std::int16_t code) {
    p.calc->ActionLabel.SetCaption(symbol);
    p.calc->Readout.SetCaption("");
    p.state.PendingOperation = code;
}

void Finish(Program& p) {
    p.calc->Label1.SetCaption("");
    FocusEqual(p);
}

// Areas and volumes are added and subtracted by dragging only.
bool RefuseAreaOrVolume(Program& p) {
    const std::string& text = p.calc->Readout.Caption();
    if (IsAreaText(text) || IsVolumeText(text)) {
        p.Beep();
        return true;
    }
    return false;
}

// Plus and Multiply: replace an operator as long as no second operand has
// been begun.
void ChooseOperation(Program& p, const char* symbol, std::int16_t code) {
    if (p.state.FirstValue) {
        const std::string& action = p.calc->ActionLabel.Caption();
        if (action.empty() || action == " " || p.calc->Readout.Caption().empty()) {
            TakeOperation(p, symbol, code);
        }
    }
    Finish(p);
}

}  // namespace

void PlusClick(Program& p) {
    if (RefuseAreaOrVolume(p)) return;
    ChooseOperation(p, "+", kAdd);
}

void MultiplyClick(Program& p) {
    ChooseOperation(p, "x", kMultiply);
}

void MinusClick(Program& p) {
    if (RefuseAreaOrVolume(p)) return;
    if (p.state.FirstValue && p.state.PendingOperation == kNone) {
        TakeOperation(p, "--", kSubtract);
    } else {
        const std::string& text = p.calc->Readout.Caption();
        if (text.empty() || text == " " || text == "0.") p.calc->Readout.SetCaption("-");
    }
    Finish(p);
}

void DivideClick(Program& p) {
    if (p.calc->ActionLabel.Caption().empty() && p.state.FirstValue) {
        TakeOperation(p, "\u00F7", kDivide);
    } else {
        p.calc->Readout.SetCaption(p.calc->Readout.Caption() + "/");
    }
    Finish(p);
}

}  // namespace core
