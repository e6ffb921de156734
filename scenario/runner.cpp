#include "scenario/runner.h"

#include <istream>
#include <ostream>

#include "measure/combine_texts.h"
#include "measure/format_text.h"
#include "measure/number_text.h"
#include "measure/parse_text.h"
#include "measure/read_number.h"

namespace scenario {

namespace {

// "Number(7)" -> ("Number", 7); "Readout" -> ("Readout", -1).
std::pair<std::string, int> SplitIndexedName(const std::string& name) {
    const auto open = name.find('(');
    if (open == std::string::npos || name.back() != ')') return {name, -1};
    auto index = ParseInteger(std::string_view(name).substr(open + 1, name.size() - open - 2));
    if (!index) return {name, -1};
    return {name.substr(0, open), static_cast<int>(*index)};
}

std::optional<std::int16_t> KeyByName(const Word& w) {
    if (w.quoted) {
        if (w.text.size() != 1) return std::nullopt;
        return static_cast<std::int16_t>(static_cast<unsigned char>(w.text[0]));
    }
    if (w.text == "Enter") return 13;
    if (w.text == "Escape") return 27;
    if (w.text == "Backspace") return 8;
    if (w.text == "Space") return 32;
    return std::nullopt;
}

std::string Truth(bool b) {
    return b ? "True" : "False";
}

std::string Slot(const std::optional<double>& slot) {
    return slot ? FormatNumber(*slot) : "empty";
}

}  // namespace

Runner::Runner(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

Runner::~Runner() = default;

std::unique_ptr<shell::LathmarkApp> Runner::StartApp(forms::Services services,
                                                     forms::ScreenInfo screen) {
    auto app = std::make_unique<shell::LathmarkApp>(services, screen);
    app->Start();
    app->MainLoopPass();
    return app;
}

void Runner::StopApp() {
    app_.reset();
}

shell::LathmarkApp& Runner::App() {
    if (!app_) {
        forms::Services services{&beeper_, &messages_, &settings_, &prompts_, &textMeasure_};
        app_ = StartApp(services, screen_);
        // An accuracy chosen before the start acts on the program as well.
        if (accuracyChosen_) app_->Program().AccuracyDenominator = accuracy_;
    }
    return *app_;
}

int Runner::Run(std::istream& in) {
    std::string line;
    int number = 0;
    while (std::getline(in, line)) {
        ++number;
        const auto first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos || line[first] == '#') continue;
        auto words = SplitWords(line);
        if (!words || words->empty() || !Execute(*words)) {
            err_ << "line " << number << ": cannot read: " << line << "\n";
            return 2;
        }
        out_.flush();
    }
    StopApp();
    return 0;
}

bool Runner::Execute(const Words& w) {
    if (MeasureCommand(w)) return true;
    if (w[0].text == "setting" && w.size() == 4 && !app_) {
        settings_.Write(w[1].text, w[2].text, w[3].text);
        return true;
    }
    if (w[0].text == "screen" && w.size() == 3) {
        auto width = ParseNumber(w[1].text), height = ParseNumber(w[2].text);
        if (!width || !height) return false;
        screen_.width = *width;
        screen_.height = *height;
        return true;
    }
    if (w[0].text == "restart" && w.size() == 1) {
        if (app_) {
            App().Runtime().Unload(*P().Calculator);
            StopApp();
        }
        App();
        return true;
    }
    if (ProgramCommand(w)) {
        if (app_) {
            GetDriver().Settle();
            if (!app_->Ended()) app_->MainLoopPass();
        }
        return true;
    }
    return Inspect(w);
}

bool Runner::MeasureCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (verb == "accuracy" && w.size() == 2) {
        auto n = ParseInteger(w[1].text);
        if (!n || *n < -32768 || *n > 32767) return false;
        accuracy_ = static_cast<std::int16_t>(*n);
        accuracyChosen_ = true;
        if (app_) P().AccuracyDenominator = accuracy_;
        return true;
    }
    if (verb == "read" && w.size() == 2 && w[1].quoted) {
        out_ << FormatNumber(measure::ReadNumber(w[1].text)) << "\n";
        return true;
    }
    if ((verb == "number" || verb == "plain") && w.size() == 2) {
        auto v = ParseNumber(w[1].text);
        if (!v) return false;
        out_ << Quote(verb == "number" ? measure::NumberText(*v) : measure::PlainNumberText(*v))
             << "\n";
        return true;
    }
    if (verb == "parse" && w.size() == 3 && w[2].quoted) {
        std::string text = w[2].text;
        double value = 0;
        if (w[1].text == "length") {
            measure::ParseLengthText(text, value);
            out_ << FormatNumber(value) << " " << Quote(text) << "\n";
        } else if (w[1].text == "area") {
            measure::ParseAreaText(text, value);
            out_ << FormatNumber(value) << "\n";
        } else if (w[1].text == "volume") {
            measure::ParseVolumeText(text, value);
            out_ << FormatNumber(value) << "\n";
        } else {
            return false;
        }
        return true;
    }
    if (verb == "format" && w.size() == 3) {
        auto v = ParseNumber(w[2].text);
        if (!v) return false;
        std::string text;
        std::int16_t fractionCount = 0;
        if (w[1].text == "length") {
            measure::FormatLength(*v, text, accuracy_, fractionCount);
        } else if (w[1].text == "area") {
            measure::FormatArea(*v, text, fractionCount);
        } else if (w[1].text == "volume") {
            measure::FormatVolume(*v, text, fractionCount);
        } else {
            return false;
        }
        out_ << Quote(text) << "\n";
        return true;
    }
    if (verb == "combine" && w.size() == 4 && w[1].quoted && w[3].quoted &&
        (w[2].text == "+" || w[2].text == "-")) {
        std::string first = w[1].text, second = w[3].text, result;
        std::int16_t pending = w[2].text == "+" ? 1 : 2, fractionCount = 0;
        double resultValue = 0;
        measure::CombineState state{pending, resultValue, fractionCount, accuracy_, [] {}};
        measure::CombineTexts(first, second, result, state);
        if (result == "ERROR") {
            out_ << "ERROR\n";
        } else {
            out_ << Quote(result) << " " << FormatNumber(resultValue) << "\n";
        }
        return true;
    }
    return false;
}

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

bool Runner::ControlInspect(const Words& w) {
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

// What the user does to a window through the window system.
bool Runner::WindowCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (w.size() < 2) return false;
    forms::Form* f = FindForm(w[1].text);
    if (!f) return false;
    if ((verb == "move" || verb == "resize") && w.size() == 4) {
        auto a = ParseNumber(w[2].text), b = ParseNumber(w[3].text);
        if (!a || !b) return false;
        if (verb == "move") {
            GetDriver().MoveWindow(*f, *a, *b, f->Width(), f->Height());
        } else {
            GetDriver().MoveWindow(*f, f->Left(), f->Top(), *a, *b);
        }
        return true;
    }
    if (w.size() != 2) return false;
    if (verb == "minimize" || verb == "restore") {
        GetDriver().SetWindowState(*f, verb == "minimize" ? forms::kMinimized : forms::kNormal);
        return true;
    }
    if (verb == "close") {
        GetDriver().CloseWindow(*f);
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

bool Runner::Inspect(const Words& w) {
    if (MemoryInspect(w)) return true;
    if (ControlInspect(w)) return true;
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
