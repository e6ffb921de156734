// The entry keys refuse next to nothing: a key only edits the caption of
// Readout, and what it makes is read once, by Equal.
#include "core/evaluate.h"
#include "core/keys.h"
#include "core/text_marks.h"

namespace core {

namespace {
forms::Control& Readout(Program& p) {
    return p.calc->Readout;
}
bool ShowsPi(Program& p) {
    return Readout(p).Caption() == kPiText;
}
}  // namespace

void NumberClick(Program& p, int index) {
    if (ShowsPi(p)) return;
    if (p.state.FormulaState == 0) p.calc->Label1.SetCaption("");
    const std::string& digit = p.calc->Number[index]->Caption();
    const std::string text = Readout(p).Caption();
    // A digit is appended behind anything, a result or an inch mark included.
    Readout(p).SetCaption(text == "0." ? digit : text + digit);
    FocusEqual(p);
}

void DecimalClick(Program& p) {
    if (ShowsPi(p)) return;
    const std::string text = Readout(p).Caption();
    if (text == "0.") {
        Readout(p).SetCaption(".");
    } else if (!Holds(text, "\"") && !Holds(text, ".")) {
        Readout(p).SetCaption(text + ".");
    } else if (Holds(text, ".") && !Holds(text, "\"")) {
        // Inches may take a point when the feet have one: only the first
        // point is compared with the first foot mark.
        const auto foot = text.find('\'');
        const auto point = text.find('.');
        const long footPos = foot == std::string::npos ? 0 : static_cast<long>(foot) + 1;
        const long pointPos = static_cast<long>(point) + 1;
        if (footPos > pointPos) Readout(p).SetCaption(text + ".");
    }
    FocusEqual(p);
}

void FootClick(Program& p) {
    if (ShowsPi(p)) return;
    Readout(p).SetCaption(Readout(p).Caption() + "'- ");
    FocusEqual(p);
}

void InchClick(Program& p) {
    if (ShowsPi(p)) return;
    const std::string text = Readout(p).Caption();
    if (!Holds(text, "\"")) Readout(p).SetCaption(text + "\"");
    FocusEqual(p);
}

void SpacebarClick(Program& p) {
    if (ShowsPi(p)) return;
    const std::string text = Readout(p).Caption();
    if (text != "0." && !text.empty() && !Holds(text, "\"")) Readout(p).SetCaption(text + " ");
    FocusEqual(p);
}

std::string WithoutLastKey(const std::string& text) {
    std::string rest = text;
    if (rest.size() >= 3 && rest.compare(rest.size() - 3, 3, "'- ") == 0) {
        rest.erase(rest.size() - 3);
    } else if (!rest.empty()) {
        rest.pop_back();
    }
    return rest.empty() ? "0." : rest;
}

void BackspaceClick(Program& p) {
    const std::string text = Readout(p).Caption();
    if (text.empty() || text == "0.") return;
    Readout(p).SetCaption(WithoutLastKey(text));
}

void CancelClick(Program& p) {
    CalcState& s = p.state;
    Readout(p).SetCaption("0.");
    s.FirstValue.reset();
    s.SecondValue.reset();
    s.PendingOperation = kNone;
    p.calc->ActionLabel.SetCaption("");
    p.calc->Label1.SetCaption("");
    s.FormulaState = 0;
    p.tape->TapeWriteClear(0);
    p.tape->TapeScrollToEnd();
    FocusEqual(p);
}

void CancelEntryClick(Program& p) {
    Readout(p).SetCaption("0.");
    FocusEqual(p);
}

}  // namespace core
