// The scenario's commands for the user's hand on any form: clicks, double
// clicks and button releases on a form's own area or on a control of any
// form, activation and focus, maximising, drags let go over a form's own
// area, and the answers for the name prompt.
#include "scenario/runner.h"

namespace scenario {

namespace {

// Where a click on a form's own area lands: for a memory cell the middle of
// the strip left of its value, elsewhere a spot where Calculator shows no
// control.
std::pair<float, float> OwnAreaPoint(const forms::Form& form) {
    if (form.Tag().find("memory") != std::string::npos) return {135, 105};
    return {60, 60};
}

}  // namespace

bool Runner::FormCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (verb == "input" && w.size() == 2) {
        PromptAnswer answer;
        if (!w[1].quoted && w[1].text == "Cancel") {
            answer.cancel = true;
        } else if (w[1].quoted) {
            answer.text = w[1].text;
        } else {
            return false;
        }
        prompts_.QueueAnswer(std::move(answer));
        return true;
    }
    if (verb == "drag" && w.size() == 7 && w[2].text == "to" && w[4].text == "at" &&
        !FindControl(w[3].text)) {
        // Let go over a form's own area, where no control takes the drop.
        forms::Control* source = FindControl(w[1].text);
        forms::Form* target = FindForm(w[3].text);
        auto x = ParseNumber(w[5].text), y = ParseNumber(w[6].text);
        if (!source || !target || !x || !y) return false;
        GetDriver().DragToForm(*source, static_cast<float>(source->Width() / 2),
                               static_cast<float>(source->Height() / 2), *target,
                               static_cast<float>(*x), static_cast<float>(*y));
        return true;
    }
    if (w.size() != 2) return false;
    const bool onControl = w[1].text.find('.') != std::string::npos;
    forms::Control* control = onControl ? FindControl(w[1].text) : nullptr;
    forms::Form* form = onControl ? nullptr : FindForm(w[1].text);
    if (verb == "maximize") {
        if (!form) return false;
        GetDriver().SetWindowState(*form, forms::kMaximized);
        return true;
    }
    if (verb != "click" && verb != "dblclick" && verb != "mouseup" && verb != "activate" &&
        verb != "gotfocus") {
        return false;
    }
    if (control) {
        if (verb == "click") {
            GetDriver().Click(*control);
        } else if (verb == "dblclick") {
            GetDriver().DblClick(*control);
        } else if (verb == "mouseup") {
            if (control->MouseUp) control->MouseUp(forms::kLeftButton, 0, 0, 0);
        } else if (verb == "gotfocus") {
            if (control->GotFocus) control->GotFocus();
        } else {
            GetDriver().Activate(control->Parent());
        }
        return true;
    }
    if (!form) return false;
    const auto [x, y] = OwnAreaPoint(*form);
    if (verb == "click") {
        GetDriver().ClickForm(*form, x, y);
    } else if (verb == "dblclick") {
        GetDriver().DblClickForm(*form, x, y);
    } else if (verb == "mouseup") {
        GetDriver().MouseUpForm(*form, x, y);
    } else if (form == P().Calculator) {
        // The calculator's own handlers, whatever window is active.
        auto& handler = verb == "activate" ? form->Activate : form->GotFocus;
        if (handler) handler();
    } else if (verb == "activate") {
        GetDriver().Activate(*form);
    } else if (form->GotFocus) {
        form->GotFocus();
    }
    return true;
}

}  // namespace scenario
