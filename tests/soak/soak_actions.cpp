// The action table of the session and the actions. To add an action: a
// line in Actions() with a name, a weight and what it does; it writes what
// it did into did_ and sets mayEmpty_ where it may reach Cancel or the
// start of a formula. Drag targets and menu commands are found in the
// forms as they stand, so new drop targets and new commands join by
// themselves.
#include <set>
#include <string>

#include "memory/cells.h"
#include "soak_session.h"

namespace soak {

namespace {

// What may empty FirstValue: Cancel and the starts of the four formulas.
bool Empties(const std::string& name) {
    static const std::set<std::string> names = {"Cancel",
                                                "Circumference",
                                                "CircArea",
                                                "CylVolume",
                                                "mnuDiagonal",
                                                "mnuPopUp1Circumference",
                                                "mnuPopUp1AreaofCircle",
                                                "mnuPopUp1VolumeofCylinder",
                                                "mnuPopUp1Diagonal"};
    return names.contains(name);
}

void Collect(forms::MenuItem& item, std::vector<forms::MenuItem*>& into) {
    if (item.Click && !item.IsSeparator() && item.Name() != "Exit") into.push_back(&item);
    for (const auto& child : item.Items()) Collect(*child, into);
}

bool OnShow(const forms::Form& form) {
    return form.Loaded() && form.Visible() && (!form.MdiParent() || form.MdiParent()->Visible());
}

}  // namespace

const std::vector<Session::Action>& Session::Actions() {
    static const std::vector<Action> actions = {
        {"key", 300, [](Session& s) { s.Key(); }},
        {"click", 300, [](Session& s) { s.ClickKey(); }},
        {"menu", 100, [](Session& s) { s.MenuCommand(); }},
        {"popup", 40, [](Session& s) { s.PopupMenu(); }},
        {"drag", 160, [](Session& s) { s.Drag(); }},
        {"cell", 110, [](Session& s) { s.CellAction(); }},
        {"window", 50, [](Session& s) { s.WindowAction(); }},
        {"long sum", 2, [](Session& s) { s.LongSum(); }},
        {"exit", 1,
         [](Session& s) {
             s.did_ = "Exit";
             s.P().Calculator->GetMenu("Exit").Click();
         }},
        {"restart", 1,
         [](Session& s) {
             s.did_ = "restart";
             s.Restart();
         }},
    };
    return actions;
}

void Session::Key() {
    static const std::int16_t keys[] = {'0',  '1', '2', '3', '4', '5', '6', '7', '8', '9',
                                        '\'', '"', '+', '-', '*', '/', 'x', 'X', '.', ' ',
                                        13,   27,  8,   '=', 'c', 'C', '1', '2', '5', '0'};
    forms::Form& calc = *P().Calculator;
    if (Below(random_, 20) == 0) {
        std::int16_t code =
            static_cast<std::int16_t>(Below(random_, 4) == 0 ? 0 : Below(random_, 256));
        did_ = "keyup " + std::to_string(code);
        driver_.KeyUp(calc, code);
        return;
    }
    std::int16_t key = Below(random_, 30) == 0 ? static_cast<std::int16_t>(Below(random_, 256))
                                               : keys[Below(random_, std::size(keys))];
    did_ = "key " + std::to_string(key);
    mayEmpty_ = key == 27 || key == 'c' || key == 'C';
    driver_.KeyPress(calc, key);
}

// A long run of Equal on one entry, so that a tape (and the grid with it)
// comes near the 16-bit limit of its rows within one run of the program.
void Session::LongSum() {
    const long presses = 1000 + static_cast<long>(Below(random_, 11000));
    did_ = "1 and Equal " + std::to_string(presses) + " times";
    forms::Control& equal = P().calc->Equal;
    driver_.Click(P().calc->Number[1] ? *P().calc->Number[1] : equal);
    for (long i = 0; i < presses && !app_->Ended(); ++i) driver_.Click(equal);
}

void Session::ClickKey() {
    std::vector<forms::Control*> keys;
    for (const auto& c : P().Calculator->Controls()) {
        if (c->Click && c->Visible()) keys.push_back(c.get());
    }
    if (keys.empty()) return;
    forms::Control& key = *keys[Below(random_, keys.size())];
    did_ =
        "click " + key.Name() + (key.Index() >= 0 ? "(" + std::to_string(key.Index()) + ")" : "");
    mayEmpty_ = Empties(key.Name());
    driver_.Click(key);
}

void Session::MenuCommand() {
    std::vector<forms::MenuItem*> items;
    for (const auto& menu : P().Calculator->Menus()) Collect(*menu, items);
    if (items.empty()) return;
    forms::MenuItem& item = *items[Below(random_, items.size())];
    // Many cells make every layout slow: past 30 the session makes no more.
    if ((item.Name().find("NewMemory") != std::string::npos ||
         item.Name().find("NamedMemory") != std::string::npos) &&
        Cells().size() >= 30) {
        did_ = "menu Erase All instead of a 31st cell";
        P().Calculator->GetMenu("EraseMemory").Click();
        return;
    }
    did_ = "menu " + item.FullName();
    mayEmpty_ = Empties(item.Name());
    if (item.Name() == "mnuOpen") ++fileReads;
    if (item.Name() == "mnuSave" || item.Name() == "mnuSaveAs") ++fileWrites;
    driver_.MenuClick(item);
}

void Session::PopupMenu() {
    forms::Form& calc = *P().Calculator;
    if (Below(random_, 2) == 0) {
        forms::Control& readout = P().calc->Readout;
        did_ = "right click on Readout";
        driver_.RightClick(readout, static_cast<float>(readout.Width() / 2),
                           static_cast<float>(readout.Height() / 2));
    } else {
        did_ = "right click on Calculator";
        driver_.RightClickForm(calc, 60, 60);
    }
}

void Session::PickPopupEntry() {
    std::vector<forms::MenuItem*> entries;
    for (const auto& item : observer_.popup->Items()) {
        if (item->Click && !item->IsSeparator() && item->Visible()) entries.push_back(item.get());
    }
    observer_.popup = nullptr;
    if (entries.empty() || Below(random_, 5) == 0) {
        did_ += ", menu closed";
        return;
    }
    forms::MenuItem& entry = *entries[Below(random_, entries.size())];
    did_ += ", picked " + entry.Name();
    mayEmpty_ = mayEmpty_ || Empties(entry.Name());
    entry.Click();
}

forms::Form* Session::RandomCell() {
    const auto cells = Cells();
    return cells.empty() ? nullptr : cells[Below(random_, cells.size())];
}

void Session::Drag() {
    // The sources that drag, and every control that takes a drop, on the
    // windows that are on show.
    std::vector<forms::Control*> sources, targets;
    for (forms::Form* form : R().OpenForms()) {
        if (!OnShow(*form)) continue;
        for (const auto& c : form->Controls()) {
            if (!c->Visible()) continue;
            if (c->DragAutomatic()) sources.push_back(c.get());
            if (c->DragDrop) targets.push_back(c.get());
        }
    }
    if (sources.empty() || targets.empty()) return;
    forms::Control& source = *sources[Below(random_, sources.size())];
    forms::Control& target = *targets[Below(random_, targets.size())];
    const auto x = static_cast<float>(
        static_cast<double>(Below(random_, 1000)) / 1000.0 * (target.Width() + 400) - 200);
    const auto y =
        static_cast<float>(Below(random_, static_cast<std::size_t>(target.Height()) + 1));
    const std::string where = source.Parent().Caption() + "." + source.Name() + " to " +
                              target.Parent().Caption() + "." + target.Name() + " at " +
                              std::to_string(x) + " " + std::to_string(y);
    switch (Below(random_, 10)) {
        case 0:
            did_ = "dragover " + where;
            driver_.DragOver(source, target, x, y);
            return;
        case 1: {
            // Let go over the own area of a window on show, where no
            // control takes it.
            std::vector<forms::Form*> forms;
            for (forms::Form* form : R().OpenForms()) {
                if (OnShow(*form)) forms.push_back(form);
            }
            if (forms.empty()) return;
            forms::Form& over = *forms[Below(random_, forms.size())];
            did_ = "drag " + source.Name() + " let go over the area of " + over.Name();
            driver_.DragToForm(source, static_cast<float>(source.Width() / 2),
                               static_cast<float>(source.Height() / 2), over, 30, 30);
            return;
        }
        default:
            did_ = "drag " + where;
            ++drops;
            if (&target.Parent() == P().Converter) ++converterDrops;
            driver_.DragAndDrop(source, static_cast<float>(source.Width() / 2),
                                static_cast<float>(source.Height() / 2), target, x, y);
    }
}

void Session::CellAction() {
    forms::Form* cell = RandomCell();
    const std::size_t kind = Below(random_, 12);
    if (!cell || kind < 2) {
        if (Cells().size() >= 30) {
            did_ = "Erase All";
            P().Calculator->GetMenu("EraseMemory").Click();
            return;
        }
        const char* menu = kind == 1 ? "NamedMemory" : "NewMemory";
        did_ = std::string("menu ") + menu;
        ++cellsMade;
        P().Calculator->GetMenu(menu).Click();
        return;
    }
    const std::string name = "cell \"" + cell->Caption() + "\" ";
    forms::Control& label = memory::ValueLabel(*cell);
    switch (kind) {
        case 2:
            did_ = name + "renamed";
            driver_.DblClickForm(*cell, 135, 105);
            break;
        case 3:
            did_ = name + "fitted to its text";
            driver_.ClickForm(*cell, 135, 105);
            break;
        case 4:
            did_ = name + "button let go";
            driver_.MouseUpForm(*cell, 135, 105);
            break;
        case 5:
            did_ = name + "activated";
            driver_.Activate(*cell);
            break;
        case 6:
            did_ = name + "value cleared";
            driver_.DblClick(label);
            break;
        case 7:
        case 8:
            did_ = name + "closed";
            driver_.CloseWindow(*cell);
            break;
        case 9: {
            const double w = 300 + static_cast<double>(Below(random_, 6000));
            const double h = 200 + static_cast<double>(Below(random_, 1500));
            did_ = name + "sized to " + std::to_string(w) + " by " + std::to_string(h);
            driver_.MoveWindow(*cell, cell->Left(), cell->Top(), w, h);
            break;
        }
        case 10:
            did_ = "Clear All";
            P().Calculator->GetMenu("ClearMemory").Click();
            break;
        default:
            did_ = "Erase All";
            P().Calculator->GetMenu("EraseMemory").Click();
            break;
    }
}

void Session::WindowAction() {
    core::Program& p = P();
    auto position = [&](double extent) {
        return static_cast<double>(Below(random_, static_cast<std::size_t>(extent) + 3000)) - 2000;
    };
    switch (Below(random_, 14)) {
        case 11:
            if (!p.Converter->Visible()) return;
            did_ = "converter Label1 double-clicked";
            driver_.DblClick(p.Converter->Get("Label1"));
            break;
        case 12:
            if (!p.Converter->Visible()) return;
            did_ = "converter double-clicked";
            driver_.DblClickForm(*p.Converter, 30, 30);
            break;
        case 13: {
            forms::Form& conv = *p.Converter;
            if (!conv.Visible()) return;
            const double w = 300 + static_cast<double>(Below(random_, 6000));
            const double h = 300 + static_cast<double>(Below(random_, 4000));
            did_ = "converter sized to " + std::to_string(w) + " by " + std::to_string(h);
            driver_.MoveWindow(conv, conv.Left(), conv.Top(), w, h);
            break;
        }
        case 0: {
            forms::Form& calc = *p.Calculator;
            const double left = position(screen_.width), top = position(screen_.height);
            did_ = "calculator moved to " + std::to_string(left) + " " + std::to_string(top);
            driver_.MoveWindow(calc, left, top, calc.Width(), calc.Height());
            break;
        }
        case 1:
            did_ = "calculator minimised";
            driver_.SetWindowState(*p.Calculator, forms::kMinimized);
            break;
        case 2:
            did_ = "calculator restored";
            driver_.SetWindowState(*p.Calculator, forms::kNormal);
            break;
        case 3: {
            forms::Form& parent = *p.MDIForm1;
            if (!parent.Visible()) return;
            const double w = 500 + static_cast<double>(Below(random_, 9000));
            const double h = 500 + static_cast<double>(Below(random_, 6000));
            did_ = "memory window sized to " + std::to_string(w) + " by " + std::to_string(h);
            driver_.MoveWindow(parent, position(screen_.width), position(screen_.height), w, h);
            break;
        }
        case 4: {
            if (!p.MDIForm1->Visible()) return;
            const std::int16_t state = static_cast<std::int16_t>(Below(random_, 3));
            did_ = "memory window state " + std::to_string(state);
            driver_.SetWindowState(*p.MDIForm1, state);
            break;
        }
        case 5:
            if (!p.MDIForm1->Visible()) return;
            did_ = "memory window closed";
            driver_.CloseWindow(*p.MDIForm1);
            break;
        case 6:
            if (!p.frmTape->Visible()) return;
            did_ = "tape closed";
            driver_.CloseWindow(*p.frmTape);
            break;
        case 7:
            if (!p.Converter->Visible()) return;
            did_ = "converter closed";
            driver_.CloseWindow(*p.Converter);
            break;
        case 8: {
            forms::Control* button =
                p.frmTape->Find("cmdScrollTape", static_cast<int>(Below(random_, 2)));
            if (!button || !button->Visible() || !p.frmTape->Visible()) return;
            did_ = "tape button " + std::to_string(button->Index());
            driver_.Click(*button);
            break;
        }
        case 9: {
            forms::Form& tape = *p.frmTape;
            if (!tape.Visible()) return;
            const double h = 300 + static_cast<double>(Below(random_, 5000));
            did_ = "tape sized to height " + std::to_string(h);
            driver_.MoveWindow(tape, tape.Left(), tape.Top(), tape.Width(), h);
            break;
        }
        default:
            if (!p.frmTape->Visible()) return;
            did_ = "right click on the tape";
            driver_.RightClickForm(*p.frmTape, 100, 400);
            break;
    }
}

}  // namespace soak
