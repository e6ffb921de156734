#include "shell/catalogue.h"

namespace shell {

namespace {

using forms::Alignment;
using forms::Control;
using forms::ControlKind;
using forms::Font;

Control& Add(forms::Form& f, const char* name, ControlKind kind, int left, int top, int width,
             int height, const char* caption = "", int index = -1) {
    Control& c = f.AddControl(std::string(name), kind, index);
    c.Move(left, top, width, height);
    c.SetCaption(caption);
    return c;
}

}  // namespace

forms::Form& MakeTapeForm(forms::Runtime& runtime) {
    forms::Form& f = runtime.CreateForm("frmTape", forms::BorderStyle::SizableNoTitle);
    f.SetDesignInnerSize(1875, 1125);
    f.SetBackColor(kWhite);
    Control& title = Add(f, "Label1", ControlKind::Label, 0, 0, 1845, 255, "Calculator");
    title.SetAlignment(Alignment::Center);
    title.SetBackColor(kWhite);
    forms::Grid& grid = f.AddControl<forms::Grid>(std::string("Grid1"));
    grid.Move(0, 280, 1815, 2205);
    grid.SetBackColor(kWhite);
    const Font arrows{"Marlett", 8.25, false};
    for (int i = 0; i < 2; ++i) {
        Control& b = Add(f, "cmdScrollTape", ControlKind::CommandButton, i == 0 ? 0 : 1680, 0, 210,
                         195, i == 0 ? "3" : "4", i);
        b.SetFont(arrows);
        b.SetVisible(false);
    }
    forms::MenuItem& popup = f.AddMenu("mnuPopup2", "Popup2");
    popup.SetVisible(false);
    popup.Add("mnuPopup2PrintTape", "Print Tape");
    popup.Add("mnuPopup2PrintAllTapes", "Print All Tapes");
    return f;
}

forms::Form& MakeConverter(forms::Runtime& runtime) {
    forms::Form& f = runtime.CreateForm("Converter", forms::BorderStyle::SizableToolWindow);
    f.SetCaption("Converter");
    f.SetDesignInnerSize(1695, 1935);
    f.SetBackColor(kTeal);
    Control& echo = Add(f, "Label1", ControlKind::Label, 60, 120, 1575, 255, " Drop Here     ");
    echo.SetBackColor(kPaleYellow);
    echo.SetFont(Font{"MS Sans Serif", 8.25, true});
    for (int i = 2; i <= 6; ++i) {
        Control& line =
            Add(f, "lblLabel", ControlKind::Label, 60, 420 + (i - 2) * 300, 1575, 255, "", i);
        line.SetBackColor(kPaleYellow);
        line.SetAlignment(Alignment::Right);
    }
    return f;
}

forms::Form& MakeMemoryParent(forms::Runtime& runtime) {
    forms::Form& f = runtime.CreateForm("MDIForm1", forms::BorderStyle::Sizable);
    f.SetCaption("Memory");
    f.SetDesignInnerSize(1935, 630);
    f.SetBackColor(kAppWorkspace);
    f.SetHasIcon(true);
    return f;
}

forms::Form& MakeMemoryCell(forms::Runtime& runtime) {
    forms::Form& f = runtime.CreateForm("MemoryForm", forms::BorderStyle::SizableToolWindow);
    f.SetCaption("Memory");
    f.SetTag("memory");
    f.SetDesignInnerSize(1815, 225);
    f.SetBackColor(0x808080);
    f.SetFont(Font{"MS Sans Serif", 8.25, true});
    Control& value = Add(f, "Label1", ControlKind::Label, 270, 0, 1575, 285, "0.");
    value.SetAlignment(Alignment::Right);
    value.SetBorderSingle(true);
    value.SetBackColor(kPaleYellow);
    value.SetFont(Font{"MS Sans Serif", 9.75, false});
    value.SetTag("0");
    value.SetDragAutomatic(true);
    return f;
}

forms::Form& MakeInputPrompt(forms::Runtime& runtime) {
    forms::Form& f = runtime.CreateForm("frmInput", forms::BorderStyle::FixedDialog);
    f.SetCaption("Named Memory");
    f.SetCloseBox(false);
    f.SetDesignInnerSize(3255, 1350);
    Add(f, "Label1", ControlKind::Label, 120, 150, 2895, 225, "Enter a name for this memory cell:");
    Add(f, "txtText1", ControlKind::TextBox, 90, 450, 3075, 285, "Text1");
    Add(f, "Command1", ControlKind::CommandButton, 90, 840, 1485, 405, "OK").SetDefault(true);
    Add(f, "Command2", ControlKind::CommandButton, 1680, 840, 1485, 405, "Cancel")
        // What a close by the window manager (and Escape) presses: the
        // prompt has no close box of its own.
        .SetCancel(true);
    return f;
}

forms::Form& MakeAboutBox(forms::Runtime& runtime) {
    forms::Form& f = runtime.CreateForm("frmAbout", forms::BorderStyle::FixedDialog);
    f.SetCaption("About Lathmark Calculator");
    f.SetDesignInnerSize(5655, 4065);
    Add(f, "picIcon", ControlKind::Picture, 240, 240, 540, 540);
    Add(f, "lblTitle", ControlKind::Label, 1290, 360, 3885, 300)
        .SetFont(Font{"MS Sans Serif", 9.75, true});
    Add(f, "lblVersion", ControlKind::Label, 1290, 660, 3885, 225);
    Add(f, "lblDescription", ControlKind::Label, 1290, 1125, 3885, 1170);
    Add(f, "Line1", ControlKind::Line, 210, 2430, 5225, 0, "", 1).SetForeColor(0x808080);
    Add(f, "Line1", ControlKind::Line, 240, 2445, 5210, 0, "", 0).SetForeColor(kWhite);
    Add(f, "lblDisclaimer", ControlKind::Label, 255, 2625, 3870, 1275);
    // The texts stand on the dialog's own face.
    for (const char* label : {"lblTitle", "lblVersion", "lblDescription", "lblDisclaimer"}) {
        f.Get(label).SetBackTransparent(true);
    }
    Add(f, "cmdOK", ControlKind::CommandButton, 4245, 3105, 1260, 345, "OK").SetDefault(true);
    f.Get("cmdOK").SetCancel(true);
    Add(f, "cmdSysInfo", ControlKind::CommandButton, 4260, 3555, 1245, 345, "&System Info");
    return f;
}

}  // namespace shell
