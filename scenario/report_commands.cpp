// The commands that print what the program holds: the state, tapes, the
// grid, beeps and messages, geometry, visibility, check marks, the top-most
// band, the focus, the settings, captions, drag icons and the popup menu.
#include "scenario/runner.h"

#include <ostream>

#include "scenario/command_words.h"

namespace scenario {

namespace {

std::string Slot(const std::optional<double>& slot) {
    return slot ? FormatNumber(*slot) : "empty";
}

}  // namespace

bool Runner::ControlReport(const Words& w) {
    const std::string& verb = w[0].text;
    if (verb == "dragicon" && w.size() == 2) {
        forms::Control* c = FindControl(w[1].text);
        if (!c) return false;
        out_ << (c->DragIcon().empty() ? "design" : c->DragIcon()) << "\n";
        return true;
    }
    if (verb == "popup" && w.size() == 1) {
        forms::MenuItem* menu = App().Runtime().LastPopupMenu();
        if (!menu) {
            out_ << "none\n";
            return true;
        }
        for (const auto& item : menu->Items()) {
            if (!item->Visible()) continue;
            if (item->IsSeparator()) {
                out_ << "---\n";
            } else {
                out_ << (item->Checked() ? "[x] " : "[ ] ") << item->Caption() << "\n";
            }
        }
        return true;
    }
    // A control's rectangle; a form's is printed below.
    if (verb == "geometry" && w.size() == 2 && w[1].text.find('.') != std::string::npos) {
        forms::Control* c = FindControl(w[1].text);
        if (!c) return false;
        out_ << "Left = " << FormatNumber(c->Left()) << "\nTop = " << FormatNumber(c->Top())
             << "\nWidth = " << FormatNumber(c->Width())
             << "\nHeight = " << FormatNumber(c->Height()) << "\n";
        return true;
    }
    return false;
}

void Runner::PrintState() {
    const core::CalcState& s = P().state;
    out_ << "FirstValue = " << Slot(s.FirstValue) << "\n"
         << "SecondValue = " << Slot(s.SecondValue) << "\n"
         << "PendingOperation = " << s.PendingOperation << "\n"
         << "EntryValue = " << FormatNumber(s.EntryValue) << "\n"
         << "EntryText = " << Quote(s.EntryText) << "\n"
         << "ResultValue = " << FormatNumber(s.ResultValue) << "\n"
         << "ResultText = " << Quote(s.ResultText) << "\n"
         << "FirstText = " << Quote(s.FirstText) << "\n"
         << "SecondText = " << Quote(s.SecondText) << "\n"
         << "FractionCount = " << s.FractionCount << "\n"
         << "FormulaState = " << s.FormulaState << "\n"
         << "CurrentTape = " << P().tape->CurrentTape << "\n";
}

void Runner::PrintTape(const Words& w) {
    const auto& store = *P().tape;
    auto tape = ParseInteger(w[1].text);
    const auto& counts = store.TapeRowCount();
    const int column = static_cast<int>(tape.value_or(-1));
    if (w.size() == 4) {
        auto row = ParseInteger(w[3].text);
        out_ << Quote(store.Grid1().Cell(static_cast<int>(row.value_or(-1)), column)) << "\n";
        return;
    }
    if (column < 0 || static_cast<std::size_t>(column) >= counts.size()) {
        out_ << "no tape " << column << "\n";
        return;
    }
    out_ << counts[column] << "\n";
    for (int row = 1; row <= counts[column]; ++row) {
        out_ << Quote(store.Grid1().Cell(row, column)) << "\n";
    }
}

bool Runner::Report(const Words& w) {
    if (MemoryReport(w)) return true;
    if (ControlReport(w)) return true;
    const std::string& verb = w[0].text;
    if (verb == "state" && w.size() == 1) {
        PrintState();
        return true;
    }
    if (verb == "tape" && (w.size() == 2 || (w.size() == 4 && w[2].text == "row")) &&
        ParseInteger(w[1].text) && (w.size() == 2 || ParseInteger(w[3].text))) {
        PrintTape(w);
        return true;
    }
    if (verb == "grid" && w.size() == 1) {
        const forms::Grid& g = P().tape->Grid1();
        out_ << "Rows = " << g.Rows() << "\nCols = " << g.Cols() << "\nRow = " << g.Row()
             << "\nCol = " << g.Col() << "\nTopRow = " << g.TopRow()
             << "\nLeftCol = " << g.LeftCol() << "\n";
        return true;
    }
    if (verb == "beeps" && w.size() == 1) {
        App();
        out_ << beeper_.count << "\n";
        return true;
    }
    if (verb == "messages" && w.size() == 1) {
        App();
        for (; messagesShown_ < messages_.shown.size(); ++messagesShown_) {
            const auto& m = messages_.shown[messagesShown_];
            out_ << Quote(m.text) << " " << Quote(m.title) << " " << Quote(forms::IconName(m.icon))
                 << "\n";
        }
        return true;
    }
    if (verb == "geometry" && w.size() == 2) {
        forms::Form* f = FindForm(w[1].text);
        if (!f) return false;
        out_ << "Left = " << FormatNumber(f->Left()) << "\nTop = " << FormatNumber(f->Top())
             << "\nWidth = " << FormatNumber(f->Width())
             << "\nHeight = " << FormatNumber(f->Height())
             << "\nScaleWidth = " << FormatNumber(f->ScaleWidth())
             << "\nScaleHeight = " << FormatNumber(f->ScaleHeight()) << "\n";
        return true;
    }
    if (verb == "visible" && w.size() == 2) {
        forms::Form* f = FindForm(w[1].text);
        if (!f) return false;
        out_ << Truth(f->Visible()) << "\n";
        return true;
    }
    if (verb == "checked" && w.size() == 2) {
        auto [name, index] = SplitIndexedName(w[1].text);
        forms::MenuItem* item = P().Calculator->FindMenu(name, index);
        if (!item) return false;
        out_ << Truth(item->Checked()) << "\n";
        return true;
    }
    if (verb == "topmost" && w.size() == 1) {
        const char* sep = "";
        for (forms::Form* f : App().Runtime().TopMostBand()) {
            out_ << sep << f->Name();
            sep = " ";
        }
        out_ << "\n";
        return true;
    }
    if (verb == "focus" && w.size() == 1) {
        forms::Control* focus = App().Runtime().Focus();
        out_ << (focus ? focus->Parent().Name() + "." + focus->FullName() : "none") << "\n";
        return true;
    }
    if (verb == "settings" && w.size() == 1) {
        for (const auto& e : settings_.Entries()) {
            out_ << Quote(e.section) << " " << Quote(e.key) << " " << Quote(e.value) << "\n";
        }
        return true;
    }
    if (verb == "show" && w.size() == 2) {
        if (w[1].text == "focus") {
            forms::Control* focus = App().Runtime().Focus();
            out_ << (focus ? focus->FullName() : "none") << "\n";
            return true;
        }
        auto [name, index] = SplitIndexedName(w[1].text);
        forms::Control* c = P().Calculator->Find(name, index);
        if (!c) return false;
        out_ << Quote(c->Caption()) << "\n";
        return true;
    }
    return false;
}

}  // namespace scenario
