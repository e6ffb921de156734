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
    form.GetRuntime().Unload(form);
}

}  // namespace scenario
