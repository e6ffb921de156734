#include "core/evaluate.h"

#include <cmath>
#include <string>

#include "core/formulas.h"
#include "core/text_marks.h"
#include "measure/format_text.h"
#include "measure/number_text.h"
#include "measure/parse_text.h"
#include "measure/text_tools.h"

namespace core {

namespace {

// A double operation that overflows from finite operands is a failure: the
// field keeps its value. Infinities that came in with an operand pass on.
bool Overflowed(double result, double a, double b) {
    return !measure::Checked(result, a, b);
}

std::string Length(Program& p, double value) {
    std::string text;
    measure::FormatLength(value, text, p.AccuracyDenominator, p.state.FractionCount);
    return text;
}
std::string Area(Program& p, double value) {
    std::string text;
    measure::FormatArea(value, text, p.state.FractionCount);
    return text;
}
std::string Volume(Program& p, double value) {
    std::string text;
    measure::FormatVolume(value, text, p.state.FractionCount);
    return text;
}

// Returns false when the pair is refused (a volume times a length).
bool MultiplicationText(Program& p) {
    CalcState& s = p.state;
    const std::string& a = s.FirstText;
    const std::string& b = s.SecondText;
    const double r = s.ResultValue;
    if (IsVolumeText(a) && IsMarked(b)) return false;
    if (IsAreaText(a) && IsMarked(b)) {
        s.ResultText = Volume(p, r) + " cu.";
    } else if (IsAreaText(a) && !IsMarked(b)) {
        s.ResultText = Area(p, r) + " sq.";
    } else if (IsMarked(a) && IsAreaText(b)) {
        s.ResultText = Volume(p, r) + " cu.";
    } else if (!IsMarked(a) && IsAreaText(b)) {
        s.ResultText = Area(p, r) + " sq.";
    } else if (IsMarked(a) && IsMarked(b)) {
        s.ResultText = Area(p, r) + " sq.";
    } else if (IsVolumeText(a) && !IsMarked(b)) {
        s.ResultText = Volume(p, r) + " cu.";
    } else if (!IsMarked(a) && IsVolumeText(b)) {
        s.ResultText = Volume(p, r) + " cu.";
    } else {
        s.ResultText = Length(p, std::fabs(r));
    }
    return true;
}

void DivisionText(Program& p) {
    CalcState& s = p.state;
    const std::string& a = s.FirstText;
    const std::string& b = s.SecondText;
    const double r = s.ResultValue;
    if (IsAreaText(a) && !IsMarked(b)) {
        s.ResultText = Area(p, r) + " sq.";
    } else if (IsAreaText(a) && IsAreaText(b)) {
        s.ResultText = measure::NumberText(r);
    } else if (IsAreaText(a)) {
        s.ResultText = Length(p, r);
    } else if (IsVolumeText(a) && IsVolumeText(b)) {
        s.ResultText = TrimBlanks(measure::NumberText(r));
    } else if (IsVolumeText(a) && IsAreaText(b)) {
        s.ResultText = Area(p, r);  // a length, told in the area form
    } else if (IsVolumeText(a) && !IsMarked(b)) {
        s.ResultText = Volume(p, r) + " cu.";
    } else if (IsVolumeText(a)) {
        s.ResultText = Area(p, r) + " sq.";
    } else if (IsMarked(a) && IsMarked(b)) {
        s.ResultText = measure::NumberText(r);
    } else if (IsMarked(a)) {
        s.ResultText = Length(p, r);
    } else {
        s.ResultText = measure::NumberText(r);
    }
}

void DivideByZero(Program& p) {
    CalcState& s = p.state;
    if (auto* boxes = p.runtime.GetServices().messages) {
        boxes->Show("Can't divide by zero!", "Error", forms::MessageButtons::OkOnly,
                    forms::MessageIcon::Exclamation);
    }
    ClearSecondValue(p);
    s.PendingOperation = kNone;
    s.SecondValue.reset();
    p.calc->Readout.SetCaption(measure::PlainNumberText(s.FirstValue.value_or(0.0)));
}

// Step 5. Returns false when the evaluation ends without tape or close.
bool ApplyOperation(Program& p, std::string& symbol) {
    CalcState& s = p.state;
    const double a = s.FirstValue.value_or(0.0);
    const double b = s.SecondValue.value_or(0.0);
    switch (s.PendingOperation) {
        case kNone:
        case kAdd:
        case kSubtract: {
            const bool add = s.PendingOperation != kSubtract;
            const double r = add ? a + b : a - b;
            if (!Overflowed(r, a, b)) s.ResultValue = r;
            s.ResultText = Length(p, std::fabs(s.ResultValue));
            symbol = add ? "+" : "-";
            if (add && s.FormulaState == 44) {
                // The diagonal: the sum of the squares becomes its root.
                if (s.ResultValue >= 0 || std::isnan(s.ResultValue)) {
                    s.ResultValue = std::sqrt(s.ResultValue);
                }
                s.ResultText = Length(p, std::fabs(s.ResultValue));
            }
            return true;
        }
        case kMultiply: {
            const double r = a * b;
            if (!Overflowed(r, a, b)) s.ResultValue = r;
            symbol = "x";
            if (!MultiplicationText(p)) {
                p.calc->Readout.SetCaption("");
                SignalError(p);
                return false;
            }
            return true;
        }
        case kDivide: {
            if (b == 0) {
                DivideByZero(p);
                return false;
            }
            const double r = a / b;
            if (!Overflowed(r, a, b)) s.ResultValue = r;
            DivisionText(p);
            symbol = "/";
            return true;
        }
        case kSquareRoot:
            // The root of a negative total fails and the last result stands.
            if (!(a < 0)) s.ResultValue = std::sqrt(a);
            s.ResultText = Length(p, std::fabs(s.ResultValue));
            s.EntryText = "";
            symbol = "SQT";
            return true;
        default:
            // The area and volume codes only combining texts understands.
            symbol = "";
            return true;
    }
}

void WriteClosingLines(Program& p, const std::string& symbol) {
    CalcState& s = p.state;
    if (s.FormulaState == 44) {
        s.FormulaState = 0;
        p.tape->AppendLines(0,
                            {"Side2 = " + Length(p, s.EntryValue) + " ", "--------------- ",
                             RightTrimBlanks(s.ResultText) + " "},
                            true);
    } else {
        p.tape->AppendLines(0,
                            {symbol + " " + RightTrimBlanks(s.EntryText) + " ", "--------------- ",
                             RightTrimBlanks(s.ResultText) + " "},
                            true);
    }
    p.tape->TapeScrollToEnd();
}

void Close(Program& p) {
    CalcState& s = p.state;
    s.FirstValue = s.ResultValue;
    s.SecondValue.reset();
    s.PendingOperation = kNone;
    s.FirstText = s.ResultText;
    s.SecondText = "";
    FocusEqual(p);
    p.calc->ActionLabel.SetCaption("");
    p.calc->Readout.SetCaption(s.ResultValue >= 0 ? s.ResultText : "-" + s.ResultText);
}

}  // namespace

void FocusEqual(Program& p) {
    p.runtime.SetFocus(p.calc->Equal);
}

void ClearSecondValue(Program& p) {
    p.state.SecondValue.reset();
}

void SignalError(Program& p) {
    p.Beep();
    p.Beep();
    p.calc->ActionLabel.SetCaption("");
    p.calc->Readout.SetCaption(p.state.FirstText);
    p.state.PendingOperation = kNone;
    p.state.SecondText = "";
}

void Evaluate(Program& p) {
    CalcState& s = p.state;

    // 1. A sign or hyphen left hanging at the end means nothing.
    s.EntryText = TrimBlanks(s.EntryText);
    if (!s.EntryText.empty() && s.EntryText.back() == '-') s.EntryText.pop_back();

    // 2. The sign never stays in EntryText, so the tape shows none.
    std::string copy;
    if (!s.EntryText.empty() && s.EntryText.front() == '-') {
        s.EntryText.erase(0, 1);
        copy = s.EntryText;
        measure::ParseLengthText(copy, s.EntryValue);
        s.EntryValue = 0 - s.EntryValue;
    } else {
        copy = s.EntryText;
        measure::ParseLengthText(copy, s.EntryValue);
    }

    if (!s.FirstValue) {
        // 3. A first entry.
        s.FirstValue = s.EntryValue;
        s.FirstText = s.EntryText;
        if (s.PendingOperation == kMultiply || s.PendingOperation == kSquareRoot) {
            s.SecondValue = s.EntryValue;
        } else if (s.FormulaState >= 1 && s.FormulaState <= 4) {
            if (!FormulaFirstEntry(p)) return;
        } else {
            p.tape->AppendLines(0, {RightTrimBlanks(s.EntryText) + " "}, false);
            p.tape->TapeScrollToEnd();
            return;
        }
    } else if (s.FormulaState == 33 || s.FormulaState == 44) {
        // 4. A second entry of a formula.
        FormulaSecondEntry(p);
    } else {
        s.SecondValue = s.EntryValue;
        s.SecondText = s.EntryText;
    }

    std::string symbol;
    if (!ApplyOperation(p, symbol)) return;
    WriteClosingLines(p, symbol);
    Close(p);
}

void EqualClick(Program& p) {
    p.calc->ActionLabel.SetCaption("");
    p.state.EntryText = p.calc->Readout.Caption();
    Evaluate(p);
}

}  // namespace core
