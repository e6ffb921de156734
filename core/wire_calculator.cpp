#include "core/wire_calculator.h"

#include "core/evaluate.h"
#include "core/formulas.h"
#include "core/keyboard.h"
#include "core/keys.h"
#include "core/popup_menu.h"
#include "core/readout_drop.h"

namespace core {

void WireCalculator(Program& p) {
    CalculatorView& c = *p.calc;
    for (int i = 0; i < 10; ++i) c.Number[i]->Click = [&p, i] { NumberClick(p, i); };
    c.Decimal.Click = [&p] { DecimalClick(p); };
    c.Spacebar.Click = [&p] { SpacebarClick(p); };
    c.Foot.Click = [&p] { FootClick(p); };
    c.Inch.Click = [&p] { InchClick(p); };
    c.Backspace.Click = [&p] { BackspaceClick(p); };
    c.Pi.Click = [&p] { PiClick(p); };
    c.Cancel.Click = [&p] { CancelClick(p); };
    c.CancelEntry.Click = [&p] { CancelEntryClick(p); };
    c.Plus.Click = [&p] { PlusClick(p); };
    c.Minus.Click = [&p] { MinusClick(p); };
    c.Multiply.Click = [&p] { MultiplyClick(p); };
    c.Divide.Click = [&p] { DivideClick(p); };
    c.Equal.Click = [&p] { EqualClick(p); };
    c.Square.Click = [&p] { SquareClick(p); };
    c.SquareRoot.Click = [&p] { SquareRootClick(p); };

    forms::Form& f = c.form;
    f.KeyPress = [&p](std::int16_t& k) { CalculatorKeyPress(p, k); };
    f.KeyUp = [&p](std::int16_t& k, int shift) { CalculatorKeyUp(p, k, shift); };
    f.Activate = [&p] { CalculatorActivate(p); };
    f.GotFocus = [&p] { CalculatorGotFocus(p); };

    f.GetMenu("Circumference").Click = [&p] { CircumferenceClick(p); };
    f.GetMenu("CircArea").Click = [&p] { CircAreaClick(p); };
    f.GetMenu("CylVolume").Click = [&p] { CylVolumeClick(p); };
    f.GetMenu("mnuDiagonal").Click = [&p] { DiagonalClick(p); };

    WireReadoutDrop(p);
    WirePopupMenu(p);
}

}  // namespace core
