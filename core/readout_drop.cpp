#include "core/readout_drop.h"

#include <string>

#include "core/evaluate.h"
#include "core/popup_menu.h"
#include "core/text_marks.h"
#include "measure/combine_texts.h"
#include "measure/parse_text.h"

namespace core {

namespace {

// The pictures that Calculator holds for the drag icons.
constexpr const char* kAddPicture = "Image1";
constexpr const char* kSubtractPicture = "Image2";
constexpr const char* kNeutralPicture = "Image3";
constexpr const char* kMultiplyPicture = "Image4";
constexpr const char* kDividePicture = "Image5";

constexpr const char* kRule = "---------------- ";  // sixteen dashes

const std::string& Picture(Program& p, const char* image) {
    return p.calc->form.Get(image).Caption();
}

void SetIcons(Program& p, forms::Control& source, const char* image) {
    p.calc->Readout.SetDragIcon(Picture(p, image));
    source.SetDragIcon(Picture(p, image));
}

// The middle of Readout from its live geometry, so that it holds at either
// zoom size. Single precision, as the comparison is made.
float Middle(Program& p) {
    const forms::Control& r = p.calc->Readout;
    return static_cast<float>(r.Left() + r.Width() / 2);
}

bool OnLeftHalf(Program& p, float x) {
    return Middle(p) > x;
}

// A product can't go past a volume, a quotient can't have a larger unit
// below than above, and a sum needs two of one kind.
bool Refused(Program& p, const std::string& source) {
    const CalcState& s = p.state;
    const std::string& first = s.FirstText;
    const bool sourceAreaOrVolume = IsAreaText(source) || IsVolumeText(source);
    if (s.PendingOperation == kMultiply) {
        if (IsAreaText(first)) return sourceAreaOrVolume;
        if (IsMarked(first)) return IsVolumeText(source);
        return false;
    }
    if (s.PendingOperation == kDivide) {
        if (IsVolumeText(first)) return false;
        if (IsAreaText(first)) return IsVolumeText(source);
        return sourceAreaOrVolume;
    }
    if (s.PendingOperation < kMultiply && s.FirstValue) {
        if (IsVolumeText(first)) return !IsVolumeText(source);
        if (IsAreaText(first)) return !IsAreaText(source);
        return sourceAreaOrVolume;
    }
    return false;
}

// The dropped text read as a length, with its sign; EntryText keeps the text
// without the sign. An area or a volume gets its number from this reading too.
double DropValue(Program& p, const std::string& caption) {
    CalcState& s = p.state;
    s.EntryText = TrimBlanks(caption);
    if (!s.EntryText.empty() && s.EntryText.back() == '-') s.EntryText.pop_back();
    double value = 0;
    if (!s.EntryText.empty() && s.EntryText.front() == '-') {
        s.EntryText.erase(0, 1);
        std::string copy = s.EntryText;
        measure::ParseLengthText(copy, value);
        return -value;
    }
    std::string copy = s.EntryText;
    measure::ParseLengthText(copy, value);
    return value;
}

void WriteLine(Program& p, const std::string& line) {
    p.tape->AppendLines(0, {line}, false);
}

// Nothing committed yet: the dropped value becomes the first one, as it
// stands, without Evaluate.
void FirstValueByDrop(Program& p, forms::Control& source, const std::string& sourceText,
                      double value, float x) {
    CalcState& s = p.state;
    std::string shown;
    if (OnLeftHalf(p, x)) {
        value = -value;
        WriteLine(p, " - " + sourceText + " ");
        shown = "-" + source.Caption();
    } else {
        WriteLine(p, " + " + sourceText + " ");
        shown = source.Caption();
    }
    p.calc->Readout.SetCaption(shown);
    s.FirstText = shown;
    s.FirstValue = value;
    s.PendingOperation = kNone;
}

// A sum or a difference by drop, in the unit of the two texts. Returns false
// when the texts didn't combine: the error has been signalled.
bool SumByDrop(Program& p, const std::string& targetText, const std::string& sourceText, float x) {
    CalcState& s = p.state;
    if (OnLeftHalf(p, x)) {
        s.PendingOperation = kSubtract;
        WriteLine(p, " - " + sourceText + " ");
    } else {
        s.PendingOperation = kAdd;
        WriteLine(p, " + " + sourceText + " ");
    }
    std::string first = targetText;
    std::string second = sourceText;
    measure::CombineState combine{s.PendingOperation, s.ResultValue, s.FractionCount,
                                  p.AccuracyDenominator, [&p] { SignalError(p); }};
    measure::CombineTexts(first, second, s.ResultText, combine);
    if (s.ResultText == "ERROR") return false;
    p.calc->Readout.SetCaption(TrimBlanks(s.ResultText) + " ");
    s.FirstText = s.ResultText;
    s.SecondText = "";
    s.FirstValue = s.ResultValue;
    p.tape->AppendLines(0, {kRule, s.ResultText + " "}, false);
    return true;
}

}  // namespace

void ReadoutMouseDown(Program& p, int button, int /*shift*/, float /*x*/, float /*y*/) {
    // Each drag starts neutral.
    if (button == forms::kLeftButton) p.calc->Readout.SetDragIcon(Picture(p, kNeutralPicture));
    PopupMouseDown(p, button);
}

void ReadoutDragOver(Program& p, forms::Control& source, float x, float /*y*/, int /*state*/) {
    const std::string& action = p.calc->ActionLabel.Caption();
    if (action == "x") {
        SetIcons(p, source, kMultiplyPicture);
        return;
    }
    if (action == "\u00F7") {
        SetIcons(p, source, kDividePicture);
        return;
    }
    const forms::Control& r = p.calc->Readout;
    if (x < r.Left() || x > r.Left() + r.Width()) return;  // the icons stay
    SetIcons(p, source, OnLeftHalf(p, x) ? kSubtractPicture : kAddPicture);
}

void ReadoutDragDrop(Program& p, forms::Control& source, float x, float /*y*/) {
    CalcState& s = p.state;
    if (Refused(p, source.Caption())) {
        SignalError(p);
        return;
    }

    // The tape on show turns to the calculator's; CurrentTape stays.
    forms::Grid& grid = p.tape->Grid1();
    grid.SetCol(0);
    grid.SetLeftCol(0);
    p.frmTape->Get("Label1").SetCaption("Calculator");

    const std::string targetText = p.calc->Readout.Caption();
    const std::string sourceText = TrimBlanks(source.Caption());
    const double value = DropValue(p, source.Caption());

    if (!s.FirstValue) {
        FirstValueByDrop(p, source, sourceText, value, x);
    } else if (s.PendingOperation < kMultiply) {
        if (!SumByDrop(p, targetText, sourceText, x)) return;
    } else if (s.PendingOperation == kMultiply || s.PendingOperation == kDivide) {
        p.calc->Readout.SetCaption(source.Caption());
        EqualClick(p);
    }

    p.tape->TapeScrollToEnd();
    p.calc->Readout.SetDragIcon(Picture(p, kNeutralPicture));
    FocusEqual(p);
}

void WireReadoutDrop(Program& p) {
    forms::Control& r = p.calc->Readout;
    r.MouseDown = [&p](int button, int shift, float x, float y) {
        ReadoutMouseDown(p, button, shift, x, y);
    };
    r.DragOver = [&p](forms::Control& source, float x, float y, int state) {
        ReadoutDragOver(p, source, x, y, state);
    };
    r.DragDrop = [&p](forms::Control& source, float x, float y) {
        ReadoutDragDrop(p, source, x, y);
    };
}

}  // namespace core
