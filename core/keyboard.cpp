#include "core/keyboard.h"

#include "core/evaluate.h"
#include "core/keys.h"

namespace core {

namespace {

enum KeyAscii : std::int16_t {
    kBackspaceKey = 8,
    kEnterKey = 13,
    kEscapeKey = 27,
    kBlankKey = 32,
};

char UpperCase(std::int16_t keyAscii) {
    if (keyAscii >= 'a' && keyAscii <= 'z') return static_cast<char>(keyAscii - 'a' + 'A');
    return static_cast<char>(keyAscii);
}

void ShowCalculatorTape(Program& p) {
    forms::Grid& grid = p.tape->Grid1();
    grid.SetCol(0);
    grid.SetLeftCol(0);
    if (p.frmTape) p.frmTape->Get("Label1").SetCaption("Calculator");
}

}  // namespace

void CalculatorKeyPress(Program& p, std::int16_t& keyAscii) {
    const std::int16_t k = keyAscii;
    const std::string& readout = p.calc->Readout.Caption();
    if (k >= '0' && k <= '9') {
        NumberClick(p, k - '0');
    } else if (k == kBlankKey) {
        SpacebarClick(p);
    } else if (k == kEscapeKey) {
        // Escape clears in two stages: the entry first, then everything.
        if (readout == "0.") {
            CancelClick(p);
        } else {
            CancelEntryClick(p);
        }
    } else if (k == kEnterKey || k == '=') {
        EqualClick(p);
        p.calc->ActionLabel.SetCaption("");
    } else if (k == '\'') {
        FootClick(p);
    } else if (k == '"') {
        InchClick(p);
    } else if (k == '+') {
        PlusClick(p);
    } else if (k == '-') {
        MinusClick(p);
    } else if (k == '*' || UpperCase(k) == 'X') {
        MultiplyClick(p);
    } else if (k == '/') {
        DivideClick(p);
    } else if (k == '.') {
        DecimalClick(p);
    } else if (k == kBackspaceKey && !readout.empty() && readout != "0.") {
        // The keyboard's own copy of the Backspace key's steps.
        p.calc->Readout.SetCaption(WithoutLastKey(readout));
    } else if (UpperCase(k) == 'C') {
        CancelClick(p);
    }
}

void CalculatorKeyUp(Program& p, std::int16_t& keyCode, int /*shift*/) {
    // These two were meant to hold key codes of their own; nothing sets them,
    // so only a key code of 0 passes, and no real key reports that.
    const std::int16_t tapeKeyA = 0;
    const std::int16_t tapeKeyB = 0;
    if (keyCode == kBlankKey) {
        // The release of the blank must not press the focused Equal.
        keyCode = 0;
    } else if (keyCode == tapeKeyA || keyCode == tapeKeyB) {
        p.runtime.SetFocus(p.tape->Grid1());
    }
}

void CalculatorActivate(Program& p) {
    p.tape->CurrentTape = 0;
    ShowCalculatorTape(p);
    p.tape->TapeScrollToEnd();
}

void CalculatorGotFocus(Program& p) {
    ShowCalculatorTape(p);
}

}  // namespace core
