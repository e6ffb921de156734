#include "core/formulas.h"

#include "core/text_marks.h"
#include "measure/format_text.h"
#include "measure/number_text.h"

namespace core {

namespace {

// The same start for all four: a running total is dropped, the tape waits.
void StartFormula(Program& p, std::int16_t code, const char* prompt) {
    CalcState& s = p.state;
    if (s.FormulaState != 0) return;
    s.FormulaState = code;
    p.calc->Label1.SetCaption(prompt);
    p.calc->Readout.SetCaption("");
    s.FirstValue.reset();
    s.SecondValue.reset();
    s.PendingOperation = kNone;
}

std::string PiLine() {
    return measure::NumberText(kFormulaPi) + " ";
}

std::string EntryLine(const CalcState& s) {
    return "x " + RightTrimBlanks(s.EntryText) + " ";
}

std::string LengthText(Program& p, double value) {
    std::string text;
    measure::FormatLength(value, text, p.AccuracyDenominator, p.state.FractionCount);
    return text;
}

// Formula lines go into whatever column is current; the calculator's
// activation keeps that at 0.
void Append(Program& p, const std::vector<std::string>& lines) {
    p.tape->AppendLines(0, lines, false);
    p.tape->TapeScrollToEnd();
}

}  // namespace

void CircumferenceClick(Program& p) {
    StartFormula(p, 1, " Enter diameter of circle");
}
void CircAreaClick(Program& p) {
    StartFormula(p, 2, " Enter radius of circle");
}
void CylVolumeClick(Program& p) {
    StartFormula(p, 3, " Enter radius of cylinder");
}
void DiagonalClick(Program& p) {
    StartFormula(p, 4, " Enter length of side 1");
}

bool FormulaFirstEntry(Program& p) {
    CalcState& s = p.state;
    const double r = s.EntryValue;
    switch (s.FormulaState) {
        case 1:
            s.SecondValue = kFormulaPi;
            s.PendingOperation = kMultiply;
            p.calc->Label1.SetCaption("Circumference =");
            s.FormulaState = 0;
            Append(p, {"Circumference ", PiLine()});
            return true;
        case 2:
            // The radius is squared before Pi comes in, as the tape reads.
            s.FirstValue = r * r;
            s.FirstText = "\"sq";
            s.SecondValue = kFormulaPi;
            s.PendingOperation = kMultiply;
            s.FormulaState = 0;
            p.calc->Label1.SetCaption("Pi(r\u00B2) Area of circle =");
            Append(p, {"Area of Circle ", PiLine(), EntryLine(s)});
            return true;
        case 3:
            s.FirstValue = r * r * kFormulaPi;
            s.FirstText = "\"sq";
            p.calc->Label1.SetCaption("Enter length of cylinder");
            s.FormulaState = 33;
            p.calc->Readout.SetCaption("");
            Append(p, {"Pi(r\u00B2)*l Volume of Cylinder ", PiLine(), EntryLine(s), EntryLine(s)});
            return false;
        default:  // 4
            s.FirstValue = r * r;
            s.FirstText = "\"";
            p.calc->Label1.SetCaption("Enter length of side 2");
            s.FormulaState = 44;
            p.calc->Readout.SetCaption("");
            Append(p, {"Diagonal ", "Side1 = " + LengthText(p, r) + " "});
            return false;
    }
}

void FormulaSecondEntry(Program& p) {
    CalcState& s = p.state;
    if (s.FormulaState == 33) {
        s.SecondValue = s.EntryValue;
        s.SecondText = "\"";
        s.PendingOperation = kMultiply;
        p.calc->Label1.SetCaption("Volume of cylinder =");
        s.FormulaState = 0;
    } else {
        // The diagonal stays at 44 until its closing lines are written.
        s.SecondValue = s.EntryValue * s.EntryValue;
        s.SecondText = "\"";
        s.PendingOperation = kAdd;
        p.calc->Label1.SetCaption("Diagonal =");
    }
}

}  // namespace core
