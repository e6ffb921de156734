// Square, SquareRoot and Pi evaluate at once, with no second Equal.
#include "core/evaluate.h"
#include "core/keys.h"
#include "core/text_marks.h"

namespace core {

namespace {

// With nothing committed the entry is first committed, then multiplied by
// (or rooted with) itself; otherwise Readout works on the running total.
void Immediate(Program& p, const char* symbol, std::int16_t code) {
    CalcState& s = p.state;
    const std::string caption = p.calc->Readout.Caption();
    if (!s.FirstValue) {
        s.EntryText = caption;
        Evaluate(p);
        s.PendingOperation = code;
        s.EntryText = caption;
    } else {
        p.calc->ActionLabel.SetCaption(symbol);
        s.PendingOperation = code;
        s.EntryText = p.calc->Readout.Caption();
    }
    Evaluate(p);
}

}  // namespace

void SquareClick(Program& p) {
    const std::string& caption = p.calc->Readout.Caption();
    if (!IsAreaText(caption) && !IsVolumeText(caption)) Immediate(p, "x", kMultiply);
    FocusEqual(p);
}

void SquareRootClick(Program& p) {
    Immediate(p, "Sqt", kSquareRoot);
    FocusEqual(p);
}

void PiClick(Program& p) {
    const std::string& caption = p.calc->Readout.Caption();
    if (caption.empty() || caption == "0." || caption == "0" || caption == "0\"") {
        p.calc->Readout.SetCaption(kPiText);
        p.state.EntryText = kPiText;
        Evaluate(p);
    }
}

}  // namespace core
