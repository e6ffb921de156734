#include "core/calculator_view.h"

namespace core {

CalculatorView::CalculatorView(forms::Form& f)
    : form(f),
      Readout(f.Get("Readout")),
      ActionLabel(f.Get("ActionLabel")),
      Label1(f.Get("Label1")),
      Number{},
      Decimal(f.Get("Decimal")),
      Spacebar(f.Get("Spacebar")),
      Foot(f.Get("Foot")),
      Inch(f.Get("Inch")),
      Backspace(f.Get("Backspace")),
      Pi(f.Get("Pi")),
      Plus(f.Get("Plus")),
      Minus(f.Get("Minus")),
      Multiply(f.Get("Multiply")),
      Divide(f.Get("Divide")),
      Cancel(f.Get("Cancel")),
      CancelEntry(f.Get("CancelEntry")),
      Equal(f.Get("Equal")),
      Square(f.Get("Square")),
      SquareRoot(f.Get("SquareRoot")) {
    for (int i = 0; i < 10; ++i) Number[i] = &f.Get("Number", i);
}

}  // namespace core
