#include "shell/catalogue.h"

namespace shell {

namespace {

using forms::Alignment;
using forms::Control;
using forms::ControlKind;
using forms::Font;

const Font kKeyFont{"System", 9.75, true};
const Font kFormFont{"MS Sans Serif", 8.25, false};
const Font kReadoutFont{"MS Sans Serif", 13.5, false};

struct KeyDesign {
    const char* name;
    int index;
    const char* caption;
    int left, top;
    const char* toolTip;
};

// The key pad, row by row. Equal covers two rows.
const KeyDesign kKeys[] = {
    {"Number", 7, "7", 130, 720, "7"},
    {"Number", 8, "8", 670, 720, "8"},
    {"Number", 9, "9", 1210, 720, "9"},
    {"Plus", -1, "+", 1850, 720, "Add"},
    {"Minus", -1, "--", 2390, 720, "Subtract"},
    {"Cancel", -1, "C", 2930, 720, "Clear"},
    {"Number", 4, "4", 130, 1260, "4"},
    {"Number", 5, "5", 670, 1260, "5"},
    {"Number", 6, "6", 1210, 1260, "6"},
    {"Multiply", -1, "x", 1850, 1260, "Multiply"},
    {"Divide", -1, "/", 2390, 1260, "Divide"},
    {"CancelEntry", -1, "CE", 2930, 1260, "Cancel Entry"},
    {"Number", 1, "1", 130, 1800, "1"},
    {"Number", 2, "2", 670, 1800, "2"},
    {"Number", 3, "3", 1210, 1800, "3"},
    {"Foot", -1, "Ft", 1850, 1800, "Foot"},
    {"Square", -1, "x\u00B2", 2390, 1800, "Square"},
    {"Equal", -1, "=", 2930, 1800, "Equals"},
    {"Number", 0, "0", 130, 2340, "0"},
    {"Decimal", -1, ".", 670, 2340, "Decimal Point"},
    {"Spacebar", -1, "", 1210, 2340, "Space"},
    {"Inch", -1, "In", 1850, 2340, "Inch"},
    {"SquareRoot", -1, "\u221A", 2390, 2340, "Square Root"},
};

void AddLabels(forms::Form& f) {
    Control& readout = f.AddControl(std::string("Readout"), ControlKind::Label);
    readout.Move(185, 255, 3180, 345);
    readout.SetCaption("0.");
    readout.SetAlignment(Alignment::Right);
    readout.SetBackColor(kPaleYellow);
    readout.SetFont(kReadoutFont);
    readout.SetTag("readout");
    readout.SetDragAutomatic(true);
    // Its drag events are told the pointer in the form's coordinates, as its
    // handlers compare X with its Left.
    readout.SetDragOrigin(forms::DragOrigin::Form);

    Control& action = f.AddControl(std::string("ActionLabel"), ControlKind::Label);
    action.Move(120, 210, 375, 375);
    action.SetAlignment(Alignment::Center);
    action.SetForeColor(kRed);
    action.SetBackTransparent(true);
    action.SetFont(kReadoutFont);

    Control& prompt = f.AddControl(std::string("Label1"), ControlKind::Label);
    prompt.Move(180, 0, 3315, 225);
    prompt.SetBackTransparent(true);
    prompt.SetFont(kFormFont);
}

void AddKeys(forms::Form& f) {
    // Backspace and Pi stand behind Foot and Inch, so they come first.
    Control& backspace = f.AddControl(std::string("Backspace"), ControlKind::CommandButton);
    backspace.Move(1850, 1800, 480, 480);
    backspace.SetCaption("Bks");
    backspace.SetFont(kFormFont);
    Control& pi = f.AddControl(std::string("Pi"), ControlKind::CommandButton);
    pi.Move(1850, 2340, 480, 480);
    pi.SetCaption("Pi");
    pi.SetFont(kFormFont);

    for (const KeyDesign& k : kKeys) {
        Control& key = f.AddControl(std::string(k.name), ControlKind::PushButton, k.index);
        const bool tall = std::string(k.name) == "Equal";
        key.Move(k.left, k.top, 480, tall ? 1020 : 480);
        key.SetCaption(k.caption);
        key.SetToolTipText(k.toolTip);
        key.SetBackColor(kButtonFace);
        if (std::string(k.name) == "Decimal") {
            key.SetFont(kFormFont);
        } else if (std::string(k.name) == "SquareRoot") {
            key.SetFont(Font{"MS Reference 2", 9.75, true});
        } else {
            key.SetFont(kKeyFont);
        }
    }
}

void AddPictures(forms::Form& f) {
    const struct {
        const char* name;
        int left;
    } images[] = {
        {"Image1", 480}, {"Image2", 0}, {"Image3", 1920}, {"Image4", 960}, {"Image5", 1440}};
    for (const auto& image : images) {
        Control& c = f.AddControl(std::string(image.name), ControlKind::Image);
        c.Move(image.left, 0, 480, 480);
        c.SetVisible(false);
        c.SetCaption(image.name);  // the picture it holds
    }
    Control& dialog = f.AddControl(std::string("CMDialog1"), ControlKind::CommonDialog);
    dialog.SetCaption("Colors");
    dialog.SetVisible(false);
}

void AddMenus(forms::Form& f) {
    forms::MenuItem& file = f.AddMenu("File", "&File");
    file.Add("mnuOpen", "&Open...");
    file.Add("mnuSave", "&Save");
    file.Add("mnuSaveAs", "Save &As...");
    file.Add("mnuSep", "-");
    file.Add("mnuPrint", "&Print Current Tape");
    file.Add("mnuPrintAll", "Print All &Tapes");
    file.Add("mnuSeperator", "-");
    forms::MenuItem& formulas = file.Add("Formulas", "&Formulas");
    formulas.Add("Circumference", "Circumference...");
    formulas.Add("CircArea", "Area of circle...");
    formulas.Add("CylVolume", "Volume of cylinder...");
    formulas.Add("mnuDiagonal", "Diagonal...");
    file.Add("Exit", "E&xit");

    forms::MenuItem& memory = f.AddMenu("Memory", "&Memory");
    memory.Add("NewMemory", "New &Memory");
    memory.Add("NamedMemory", "&Named Memory...");
    memory.Add("mnuArrangeMemory", "&Arrange");
    memory.Add("ClearMemory", "&Clear All");
    memory.Add("EraseMemory", "&Erase All");

    forms::MenuItem& display = f.AddMenu("DisplayMenu", "&Display");
    forms::MenuItem& accuracy = display.Add("Accuracy", "&Accuracy");
    accuracy.Add("Sixteen", "1/16\"").SetChecked(true);
    accuracy.Add("thirtysecond", "1/32\"");
    display.Add("ShowKeys", "Show &Keys").SetChecked(true);
    display.Add("mnuConverter", "&Converter");
    display.Add("mnuTape", "&Tape");
    forms::MenuItem& zoom = display.Add("Zoom", "&Zoom");
    zoom.Add("ZoomSmall", "75%");
    zoom.Add("ZoomLarge", "100%").SetChecked(true);
    forms::MenuItem& colors = display.Add("mnuColors", "Colors");
    const char* colorCaptions[] = {
        "Calculator",        "Calculator readout ",      "Memory", "Memory readout", "Converter",
        "Converter readout", "Converter result readouts"};
    for (int i = 0; i < 7; ++i) colors.Add("mnuColor", colorCaptions[i], i);

    forms::MenuItem& help = f.AddMenu("HelpMenu", "&Help");
    help.Add("mnuHelpContents", "&Contents");
    help.Add("mnuAbout", "&About");

    forms::MenuItem& popup = f.AddMenu("mnuPopup1", "Popup1");
    popup.SetVisible(false);
    popup.Add("mnuPopup1NewMemory", "New Memory");
    popup.Add("mnuPopup1NamedMemory", "Named Memory");
    popup.Add("mnuPopup1Separator1", "-");
    popup.Add("mnuPopup1Accuracy16", "1/16\" Accuracy").SetChecked(true);
    popup.Add("mnuPopup1Accuracy32", "1/32\" Accuracy");
    popup.Add("mnuPopup1Separator2", "-");
    popup.Add("mnuPopup1Zoom75", "Zoom 75%");
    popup.Add("mnuPopup1Zoom100", "Zoom 100%").SetChecked(true);
    popup.Add("mnuPopup1ShowKeys", "Show Keys").SetChecked(true);
    popup.Add("mnuPopup1ShowTape", "ShowTape");
    popup.Add("mnuPopup1Separator3", "-");
    popup.Add("mnuPopUp1Circumference", "Circumference...");
    popup.Add("mnuPopUp1AreaofCircle", "Area of Circle...");
    popup.Add("mnuPopUp1VolumeofCylinder", "VolumeofCylinder...");
    popup.Add("mnuPopUp1Diagonal", "Diagonal...");
    popup.Add("mnuPopup1Separator4", "-");
    popup.Add("mnuPopup1Cancel", "Cancel");
}

}  // namespace

forms::Form& MakeCalculator(forms::Runtime& runtime) {
    forms::Form& f =
        runtime.CreateForm("Calculator", forms::BorderStyle::FixedSingle, /*hasMenuBar=*/true);
    f.SetCaption("Lathmark Calculator");
    f.SetDesignInnerSize(3525, 2925);
    f.SetBackColor(kTeal);
    f.SetHasIcon(true);
    AddLabels(f);
    AddKeys(f);
    AddPictures(f);
    AddMenus(f);
    f.SetTabFirst(&f.Get("Equal"));
    return f;
}

}  // namespace shell
