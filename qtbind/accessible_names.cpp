#include "qtbind/accessible_names.h"

#include <string_view>

#include "forms/control.h"
#include "forms/form.h"

namespace qtbind {

namespace {

struct Entry {
    std::string_view form;     // the form's design name
    std::string_view control;  // the control's full name, with its index
    const char* name;
};

// Keys are named by what they do, not by their captions ("--", "x", "Ft"):
// their tool tips say it in a few more words and stay their descriptions.
// Backspace and Pi stand hidden behind Foot and Inch, but a screen reader
// that walks every control still meets them.
constexpr Entry kNames[] = {
    {"Calculator", "Number(0)", "0"},
    {"Calculator", "Number(1)", "1"},
    {"Calculator", "Number(2)", "2"},
    {"Calculator", "Number(3)", "3"},
    {"Calculator", "Number(4)", "4"},
    {"Calculator", "Number(5)", "5"},
    {"Calculator", "Number(6)", "6"},
    {"Calculator", "Number(7)", "7"},
    {"Calculator", "Number(8)", "8"},
    {"Calculator", "Number(9)", "9"},
    {"Calculator", "Decimal", "Decimal point"},
    {"Calculator", "Spacebar", "Space"},
    {"Calculator", "Foot", "Feet"},
    {"Calculator", "Inch", "Inches"},
    {"Calculator", "Plus", "Add"},
    {"Calculator", "Minus", "Subtract"},
    {"Calculator", "Multiply", "Multiply"},
    {"Calculator", "Divide", "Divide"},
    {"Calculator", "Cancel", "Clear"},
    {"Calculator", "CancelEntry", "Clear entry"},
    {"Calculator", "Equal", "Equals"},
    {"Calculator", "Square", "Square"},
    {"Calculator", "SquareRoot", "Square root"},
    {"Calculator", "Backspace", "Backspace"},
    {"Calculator", "Pi", "Pi"},
    {"Calculator", "Readout", "Readout"},
    {"Calculator", "ActionLabel", "Operation"},
    {"Calculator", "Label1", "Formula prompt"},
    {"frmTape", "Label1", "Tape name"},
    {"frmTape", "Grid1", "Tape"},
    {"frmTape", "cmdScrollTape(0)", "Previous tape"},
    {"frmTape", "cmdScrollTape(1)", "Next tape"},
    {"Converter", "Label1", "Dropped value"},
    {"Converter", "lblLabel(2)", "Conversion 1"},
    {"Converter", "lblLabel(3)", "Conversion 2"},
    {"Converter", "lblLabel(4)", "Conversion 3"},
    {"Converter", "lblLabel(5)", "Conversion 4"},
    {"Converter", "lblLabel(6)", "Conversion 5"},
    {"MemoryForm", "Label1", "Value"},
    {"frmInput", "Label1", "Prompt"},
    {"frmInput", "txtText1", "Enter a name for this memory cell:"},
    {"frmInput", "Command1", "OK"},
    {"frmInput", "Command2", "Cancel"},
    {"frmAbout", "picIcon", "Program icon"},
    {"frmAbout", "lblTitle", "Title"},
    {"frmAbout", "lblVersion", "Version"},
    {"frmAbout", "lblDescription", "Maker"},
    {"frmAbout", "Line1(0)", "Rule"},
    {"frmAbout", "Line1(1)", "Rule"},
    {"frmAbout", "lblDisclaimer", "Warning"},
    {"frmAbout", "cmdOK", "OK"},
    {"frmAbout", "cmdSysInfo", "System Info"},
};

// Windows whose title bar shows no title.
constexpr Entry kUntitledWindows[] = {
    {"frmTape", "", "Tape"},
};

}  // namespace

QString AccessibleName(const forms::Control& control) {
    const std::string full = control.FullName();
    const std::string& form = control.Parent().Name();
    for (const Entry& entry : kNames) {
        if (entry.form == form && entry.control == full) return QString::fromUtf8(entry.name);
    }
    return QString::fromStdString(full);
}

QString AccessibleWindowName(const forms::Form& form) {
    if (!form.Caption().empty()) return QString::fromStdString(form.Caption());
    for (const Entry& entry : kUntitledWindows) {
        if (entry.form == form.Name()) return QString::fromUtf8(entry.name);
    }
    return QString::fromStdString(form.Name());
}

QAccessible::Role AccessibleWindowRole(const forms::Form& form) {
    return form.Border() == forms::BorderStyle::FixedDialog ? QAccessible::Dialog
                                                            : QAccessible::Window;
}

}  // namespace qtbind
