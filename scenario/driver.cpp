#include "scenario/driver.h"

#include "forms/runtime.h"

namespace scenario {

void HeadlessDriver::KeyPress(forms::Form& form, std::int16_t keyAscii) {
    if (form.KeyPress) form.KeyPress(keyAscii);
}

void HeadlessDriver::KeyUp(forms::Form& form, std::int16_t keyCode) {
    if (form.KeyUp) form.KeyUp(keyCode, 0);
}

void HeadlessDriver::Click(forms::Control& control) {
    if (control.Click) control.Click();
}

void HeadlessDriver::MenuClick(forms::MenuItem& item) {
    if (item.Click) item.Click();
}

void HeadlessDriver::MoveWindow(forms::Form& form, double left, double top, double width,
                                double height) {
    form.ReportGeometry(left, top, width, height);
}

void HeadlessDriver::SetWindowState(forms::Form& form, std::int16_t state) {
    form.SetWindowState(state);
}

void HeadlessDriver::CloseWindow(forms::Form& form) {
    form.GetRuntime().CloseByUser(form);
}

void Driver::RightClick(forms::Control& control, float x, float y) {
    control.Parent().GetRuntime().PressMouse(control, forms::kRightButton, 0, x, y);
}

void Driver::RightClickForm(forms::Form& form, float x, float y) {
    form.GetRuntime().PressMouse(form, forms::kRightButton, 0, x, y);
}

void Driver::DragAndDrop(forms::Control& source, float sourceX, float sourceY,
                         forms::Control& target, float x, float y) {
    forms::Runtime& runtime = source.Parent().GetRuntime();
    runtime.PressMouse(source, forms::kLeftButton, 0, sourceX, sourceY);
    // The first move is still over the source; a control that drags nothing
    // began no drag, and the moves and the release then do nothing.
    runtime.DragMove(&source, sourceX, sourceY);
    runtime.DragMove(&target, x, y);
    runtime.Drop(&target, x, y);
}

void Driver::DragOver(forms::Control& source, forms::Control& target, float x, float y) {
    forms::Runtime& runtime = source.Parent().GetRuntime();
    if (!runtime.BeginDrag(source)) return;
    runtime.DragMove(&target, x, y);
    runtime.CancelDrag();
}

void Driver::DragOverForm(forms::Control& source, forms::Form& target, float x, float y) {
    forms::Runtime& runtime = source.Parent().GetRuntime();
    if (!runtime.BeginDrag(source)) return;
    runtime.DragMoveOverForm(target, x, y);
    runtime.CancelDrag();
}

void Driver::ClickForm(forms::Form& form, float x, float y) {
    form.GetRuntime().PressMouse(form, forms::kLeftButton, 0, x, y);
    if (form.MouseUp) form.MouseUp(forms::kLeftButton, 0, x, y);
    if (form.Click) form.Click();
}

void Driver::DblClickForm(forms::Form& form, float x, float y) {
    ClickForm(form, x, y);
    if (form.DblClick) form.DblClick();
    if (form.MouseUp) form.MouseUp(forms::kLeftButton, 0, x, y);
}

void Driver::MouseUpForm(forms::Form& form, float x, float y) {
    if (form.MouseUp) form.MouseUp(forms::kLeftButton, 0, x, y);
}

void Driver::DragToForm(forms::Control& source, float sourceX, float sourceY, forms::Form& target,
                        float x, float y) {
    forms::Runtime& runtime = source.Parent().GetRuntime();
    runtime.PressMouse(source, forms::kLeftButton, 0, sourceX, sourceY);
    runtime.DragMove(&source, sourceX, sourceY);
    runtime.DragMoveOverForm(target, x, y);
    runtime.Drop(nullptr, x, y);
}

void Driver::DblClick(forms::Control& control) {
    if (control.DblClick) control.DblClick();
}

void Driver::Activate(forms::Form& form) {
    form.GetRuntime().Activate(form);
}

void Driver::AnswerPrompt(forms::Form& prompt, const PromptAnswer& answer) {
    forms::Control* ok = prompt.Find("Command1");
    forms::Control* cancel = prompt.Find("Command2");
    forms::Control* text = prompt.Find("txtText1");
    if (answer.cancel) {
        if (cancel && cancel->Click) cancel->Click();
        return;
    }
    if (answer.text && text) text->SetCaption(*answer.text);
    if (ok && ok->Click) ok->Click();
}

}  // namespace scenario
