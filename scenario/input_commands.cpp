// The commands of the user at the calculator: keys, clicks and menu items,
// captions and geometry set by hand, activation, answers for the message
// boxes, the right button and drags; and how the commands find forms and
// controls by name.
#include "scenario/runner.h"

#include "scenario/command_words.h"

namespace scenario {

bool Runner::KeyCommand(const Words& w) {
    forms::Form& calc = *P().Calculator;
    if (w[0].text == "key" && w.size() == 2) {
        auto key = KeyByName(w[1]);
        if (!key) return false;
        GetDriver().KeyPress(calc, *key);
        return true;
    }
    if (w[0].text == "keyup" && w.size() == 2) {
        auto code = ParseInteger(w[1].text);
        if (!code || *code < -32768 || *code > 32767) return false;
        GetDriver().KeyUp(calc, static_cast<std::int16_t>(*code));
        return true;
    }
    return false;
}

bool Runner::ProgramCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (FormCommand(w)) return true;
    if (verb == "key" || verb == "keyup") return KeyCommand(w);
    if (verb == "click" && w.size() == 2) {
        auto [name, index] = SplitIndexedName(w[1].text);
        forms::Control* c = P().Calculator->Find(name, index);
        if (!c) return false;
        GetDriver().Click(*c);
        return true;
    }
    if (verb == "menu" && w.size() == 2) {
        auto [name, index] = SplitIndexedName(w[1].text);
        forms::MenuItem* item = P().Calculator->FindMenu(name, index);
        if (!item) return false;
        GetDriver().MenuClick(*item);
        return true;
    }
    if (verb == "caption" && w.size() == 3 && w[2].quoted) {
        auto [name, index] = SplitIndexedName(w[1].text);
        forms::Control* c = P().Calculator->Find(name, index);
        if (!c) return false;
        c->SetCaption(w[2].text);
        return true;
    }
    if (verb == "geometry" && w.size() == 6) {
        // Puts a control on another rectangle, as a zoom would.
        forms::Control* c = FindControl(w[1].text);
        auto l = ParseNumber(w[2].text), t = ParseNumber(w[3].text);
        auto wd = ParseNumber(w[4].text), h = ParseNumber(w[5].text);
        if (!c || !l || !t || !wd || !h) return false;
        c->Move(*l, *t, *wd, *h);
        return true;
    }
    if ((verb == "activate" || verb == "gotfocus") && w.size() == 2 && w[1].text == "Calculator") {
        forms::Form& calc = *P().Calculator;
        auto& handler = verb == "activate" ? calc.Activate : calc.GotFocus;
        if (handler) handler();
        return true;
    }
    if (MouseCommand(w)) return true;
    if (WindowCommand(w)) return true;
    if (verb == "answer" && w.size() == 2) {
        if (w[1].text == "Cancel") {
            messages_.nextAnswer = forms::MessageAnswer::Cancel;
        } else if (w[1].text == "OK") {
            messages_.nextAnswer = forms::MessageAnswer::Ok;
        } else if (w[1].text == "Yes") {
            messages_.nextAnswer = forms::MessageAnswer::Yes;
        } else if (w[1].text == "No") {
            messages_.nextAnswer = forms::MessageAnswer::No;
        } else {
            return false;
        }
        return true;
    }
    return false;
}

forms::Form* Runner::FindForm(const std::string& name) {
    core::Program& p = P();
    for (forms::Form* f : {p.Calculator, p.frmTape, p.Converter, p.MDIForm1}) {
        if (f && f->Name() == name) return f;
    }
    if (forms::Form* f = App().Runtime().FindOpenForm(name)) return f;
    // Forms that share a name (the memory cells) go by their caption.
    for (forms::Form* f : App().Runtime().OpenForms()) {
        if (f->Caption() == name) return f;
    }
    return nullptr;
}

forms::Control* Runner::FindControl(const std::string& name) {
    const auto dot = name.rfind('.');
    forms::Form* form = P().Calculator;
    std::string controlName = name;
    if (dot != std::string::npos) {
        form = FindForm(name.substr(0, dot));
        if (!form) return nullptr;
        controlName = name.substr(dot + 1);
    }
    auto [plain, index] = SplitIndexedName(controlName);
    return form->Find(plain, index);
}

// The mouse on controls: right clicks, drags and drops. Positions are given
// as the target's drag events receive them, and turned here into the
// control's own coordinates, which is where a pointer would be.
bool Runner::MouseCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (verb == "rightclick" && w.size() == 2) {
        if (forms::Control* c = FindControl(w[1].text)) {
            GetDriver().RightClick(*c, static_cast<float>(c->Width() / 2),
                                   static_cast<float>(c->Height() / 2));
            return true;
        }
        forms::Form* f = FindForm(w[1].text);
        if (!f) return false;
        // A spot of the inner area where Calculator shows no control.
        GetDriver().RightClickForm(*f, 60, 60);
        return true;
    }
    const bool drag = verb == "drag" && w.size() == 7 && w[2].text == "to" && w[4].text == "at";
    const bool over = verb == "dragover" && w.size() == 5;
    if (!drag && !over) return false;
    forms::Control* source = FindControl(w[1].text);
    forms::Control* target = FindControl(w[drag ? 3 : 2].text);
    auto x = ParseNumber(w[drag ? 5 : 3].text), y = ParseNumber(w[drag ? 6 : 4].text);
    if (over && source && !target && x && y) {
        // Over a form's own area, where no control lies.
        forms::Form* form = FindForm(w[2].text);
        if (!form) return false;
        GetDriver().DragOverForm(*source, *form, static_cast<float>(*x), static_cast<float>(*y));
        return true;
    }
    if (!source || !target || !x || !y) return false;
    const auto ownX = static_cast<float>(*x - target->DragOffsetX());
    const auto ownY = static_cast<float>(*y - target->DragOffsetY());
    if (drag) {
        // The press is on the middle of the source.
        GetDriver().DragAndDrop(*source, static_cast<float>(source->Width() / 2),
                                static_cast<float>(source->Height() / 2), *target, ownX, ownY);
    } else {
        GetDriver().DragOver(*source, *target, ownX, ownY);
    }
    return true;
}

}  // namespace scenario
