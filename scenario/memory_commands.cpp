// The scenario's commands that look at the memory cells and the forms:
// `cells`, `memory`, `tapes`, `forms`, `prompts`, and `show` of a
// control or form of any window.
#include <ostream>

#include "scenario/runner.h"

#include "scenario/command_words.h"

namespace scenario {

namespace {

bool IsCell(const forms::Form& f) {
    return f.Tag().find("memory") != std::string::npos;
}

}  // namespace

bool Runner::MemoryReport(const Words& w) {
    const std::string& verb = w[0].text;
    core::Program& p = P();
    if (verb == "cells" && w.size() == 1) {
        for (forms::Form* f : App().Runtime().OpenForms()) {
            if (!IsCell(*f)) continue;
            const forms::Control& label = f->Get("Label1");
            out_ << Quote(f->Caption()) << " " << Quote(label.Caption()) << " "
                 << Quote(label.Tag()) << " " << FormatNumber(f->Left()) << " "
                 << FormatNumber(f->Top()) << " " << FormatNumber(f->Width()) << " "
                 << FormatNumber(f->Height()) << " " << FormatNumber(label.Width()) << "\n";
        }
        return true;
    }
    if (verb == "memory" && w.size() == 1) {
        out_ << "MemoryCount = " << p.MemoryCount << "\nNextMemoryNumber = " << p.NextMemoryNumber
             << "\nMemoryWidth = " << p.MemoryWidth << "\nCellResizeGuard = " << p.CellResizeGuard
             << "\nArrangingMemory = " << p.ArrangingMemory << "\nResizeSkip = " << p.ResizeSkip
             << "\n";
        return true;
    }
    if (verb == "tapes" && w.size() == 1) {
        const auto& names = p.tape->TapeNames();
        const auto& counts = p.tape->TapeRowCount();
        for (std::size_t t = 0; t < names.size(); ++t) {
            out_ << t << " " << Quote(names[t]) << " ";
            if (t < counts.size()) {
                out_ << counts[t];
            } else {
                out_ << "none";
            }
            out_ << "\n";
        }
        return true;
    }
    if (verb == "forms" && w.size() == 1) {
        const auto& open = App().Runtime().OpenForms();
        for (std::size_t i = 0; i < open.size(); ++i) {
            const forms::Form& f = *open[i];
            out_ << i << " " << f.Name() << " " << Quote(f.Caption()) << " " << Quote(f.Tag())
                 << " " << Truth(f.Visible()) << "\n";
        }
        return true;
    }
    if (verb == "prompts" && w.size() == 1) {
        for (const PromptHost::Shown& shown : prompts_.TakeShown()) {
            out_ << Quote(shown.proposed) << " "
                 << (shown.calculatorTopMost ? "topmost" : "not topmost") << "\n";
        }
        return true;
    }
    if (verb == "visible" && w.size() == 2 && w[1].text.find('.') != std::string::npos) {
        forms::Control* c = FindControl(w[1].text);
        if (!c) return false;
        out_ << Truth(c->Visible()) << "\n";
        return true;
    }
    if (verb == "show" && w.size() == 2 && w[1].text.find('.') != std::string::npos) {
        forms::Control* c = FindControl(w[1].text);
        if (!c) return false;
        out_ << Quote(c->Caption()) << "\n";
        return true;
    }
    if (verb == "show" && w.size() == 2 && w[1].text != "focus" && !FindControl(w[1].text)) {
        forms::Form* f = FindForm(w[1].text);
        if (!f) return false;
        out_ << Quote(f->Caption()) << "\n";
        return true;
    }
    return false;
}

}  // namespace scenario
