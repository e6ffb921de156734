// The controls of the form Calculator that the handlers address, found once
// by their design names.
#pragma once

#include <array>

#include "forms/form.h"

namespace core {

struct CalculatorView {
    explicit CalculatorView(forms::Form& form);

    forms::Form& form;
    forms::Control& Readout;
    forms::Control& ActionLabel;
    forms::Control& Label1;
    std::array<forms::Control*, 10> Number;
    forms::Control& Decimal;
    forms::Control& Spacebar;
    forms::Control& Foot;
    forms::Control& Inch;
    forms::Control& Backspace;
    forms::Control& Pi;
    forms::Control& Plus;
    forms::Control& Minus;
    forms::Control& Multiply;
    forms::Control& Divide;
    forms::Control& Cancel;
    forms::Control& CancelEntry;
    forms::Control& Equal;
    forms::Control& Square;
    forms::Control& SquareRoot;
};

}  // namespace core
