#include "scenario_gui/gui_driver.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <map>
#include <optional>
#include <vector>

#include "forms/runtime.h"
#include "qtbind/form_surface.h"
#include "qtbind/form_window.h"
#include "qtbind/key_codes.h"
#include "qtbind/qt_binding.h"

namespace scenario {

namespace {

struct Stroke {
    Qt::Key key;
    QString text;
    Qt::KeyboardModifiers modifiers;
};

// Characters typed with Shift held on the US layout.
bool TypedWithShift(char16_t c) {
    if (c >= u'A' && c <= u'Z') return true;
    return QStringView(u"~!@#$%^&*()_+{}|:\"<>?").contains(QChar(c));
}

// The key that types a character of the program's Latin-1, with the text
// that it reports.
std::optional<Stroke> StrokeFor(std::int16_t keyAscii) {
    switch (keyAscii) {
        case 8:
            return Stroke{Qt::Key_Backspace, QStringLiteral("\b"), Qt::NoModifier};
        case 13:
            return Stroke{Qt::Key_Return, QStringLiteral("\r"), Qt::NoModifier};
        case 27:
            return Stroke{Qt::Key_Escape, QString(QChar(27)), Qt::NoModifier};
        default:
            break;
    }
    if (keyAscii < 32 || keyAscii > 255 || keyAscii == 127) return std::nullopt;
    const auto c = static_cast<char16_t>(keyAscii);
    const Qt::Key key = keyAscii < 128 ? QTest::asciiToKey(static_cast<char>(keyAscii))
                                       : static_cast<Qt::Key>(QChar(c).toUpper().unicode());
    return Stroke{key, QString(QChar(c)), TypedWithShift(c) ? Qt::ShiftModifier : Qt::NoModifier};
}

// The key that the binding turns into each key code: the plain keys first,
// so that 48 is the 0 key and not the shifted one of ")".
const std::map<std::int16_t, Stroke>& KeysByCode() {
    static const std::map<std::int16_t, Stroke> byCode = [] {
        std::vector<Stroke> candidates;
        for (int k = Qt::Key_0; k <= Qt::Key_9; ++k) {
            candidates.push_back({Qt::Key(k), QString(QChar(k)), Qt::NoModifier});
        }
        for (int k = Qt::Key_A; k <= Qt::Key_Z; ++k) {
            candidates.push_back({Qt::Key(k), QString(QChar(k)).toLower(), Qt::NoModifier});
        }
        for (int k = Qt::Key_Escape; k <= Qt::Key_F35; ++k) {
            candidates.push_back({Qt::Key(k), QString(), Qt::NoModifier});
        }
        for (int k = Qt::Key_Space; k <= Qt::Key_AsciiTilde; ++k) {
            candidates.push_back({Qt::Key(k), QString(QChar(k)), Qt::NoModifier});
        }
        for (int k : {Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5, Qt::Key_6,
                      Qt::Key_7, Qt::Key_8, Qt::Key_9, Qt::Key_Asterisk, Qt::Key_Plus,
                      Qt::Key_Minus, Qt::Key_Period, Qt::Key_Slash}) {
            candidates.push_back({Qt::Key(k), QString(QChar(k)), Qt::KeypadModifier});
        }
        std::map<std::int16_t, Stroke> found;
        for (const Stroke& s : candidates) {
            const QKeyEvent release(QEvent::KeyRelease, s.key, s.modifiers, s.text);
            if (auto code = qtbind::KeyCode(release)) found.try_emplace(*code, s);
        }
        return found;
    }();
    return byCode;
}

}  // namespace

qtbind::FormWindow* GuiDriver::WindowOnScreen(const forms::Form& form) const {
    if (!binding_) return nullptr;
    qtbind::FormWindow* window = binding_->WindowFor(form);
    // A cell is visible only while its parent's window is.
    if (!window || !window->isVisible() || window->window()->isMinimized()) return nullptr;
    return window;
}

void GuiDriver::KeyPress(forms::Form& form, std::int16_t keyAscii) {
    qtbind::FormWindow* window = WindowOnScreen(form);
    const auto stroke = StrokeFor(keyAscii);
    QWindow* handle = window ? window->window()->windowHandle() : nullptr;
    if (!handle || !stroke) {
        // No window to type into, or a character that no key types.
        model_.KeyPress(form, keyAscii);
        return;
    }
    // Through the window system, as a keyboard delivers it: to the window's
    // focused widget, a press and then a release.
    QTest::sendKeyEvent(QTest::Press, handle, stroke->key, stroke->text, stroke->modifiers);
    QTest::sendKeyEvent(QTest::Release, handle, stroke->key, stroke->text, stroke->modifiers);
}

void GuiDriver::KeyUp(forms::Form& form, std::int16_t keyCode) {
    qtbind::FormWindow* window = WindowOnScreen(form);
    QWindow* handle = window ? window->window()->windowHandle() : nullptr;
    const auto& keys = KeysByCode();
    const auto found = keys.find(keyCode);
    if (!handle || found == keys.end()) {
        // No key of a keyboard reports such a code (0 among them): only the
        // program itself could raise the event with it.
        model_.KeyUp(form, keyCode);
        return;
    }
    // The release alone, of a key that was pressed before the scenario
    // looked.
    const Stroke& s = found->second;
    QTest::sendKeyEvent(QTest::Release, handle, s.key, s.text, s.modifiers);
}

void GuiDriver::Click(forms::Control& control) {
    QWidget* widget = binding_ ? binding_->WidgetFor(control) : nullptr;
    QWidget* top = widget ? widget->window() : nullptr;
    QWindow* handle = top && WindowOnScreen(control.Parent()) ? top->windowHandle() : nullptr;
    const QPoint at = widget ? widget->mapTo(top, widget->rect().center()) : QPoint();
    QWidget* hit = handle && widget->isVisible() ? top->childAt(at) : nullptr;
    if (hit && (hit == widget || widget->isAncestorOf(hit))) {
        // The mouse on the middle of the control, through the window system,
        // which finds the widget under it.
        QTest::mouseClick(handle, Qt::LeftButton, Qt::NoModifier, at);
        return;
    }
    // No mouse reaches a control that lies wholly behind another (Backspace
    // and Pi behind Foot and Inch) or is not on screen: its Click comes as
    // the program's own call of it would.
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (button && handle) {
        button->click();
    } else {
        model_.Click(control);
    }
}

void GuiDriver::MenuClick(forms::MenuItem& item) {
    qtbind::FormWindow* window = binding_ ? binding_->WindowFor(item.Parent()) : nullptr;
    QAction* action = window ? window->Menus().ActionFor(item) : nullptr;
    if (!action) {
        model_.MenuClick(item);
        return;
    }
    // The item chosen in its menu, or in the popup menu that holds it.
    action->trigger();
}

void GuiDriver::AnswerPrompt(forms::Form& prompt, const PromptAnswer& answer) {
    // The prompt's window comes up first: it was shown modally a moment ago.
    Settle();
    if (answer.cancel) {
        if (forms::Control* cancel = prompt.Find("Command2")) Click(*cancel);
        return;
    }
    qtbind::FormWindow* window = WindowOnScreen(prompt);
    forms::Control* box = prompt.Find("txtText1");
    auto* edit = window && box ? qobject_cast<QLineEdit*>(window->WidgetFor(*box)) : nullptr;
    QWindow* handle = edit ? window->windowHandle() : nullptr;
    const std::string text = answer.text.value_or("");
    // One stroke a character: the keys of the keyboard for ASCII, and for
    // any other letter a key that types it, as an input method would.
    std::vector<Stroke> strokes;
    bool typeable = true;
    for (char32_t c : QString::fromStdString(text).toUcs4()) {
        if (c >= 0x80) {
            strokes.push_back({Qt::Key_unknown, QString::fromUcs4(&c, 1), Qt::NoModifier});
            continue;
        }
        const auto stroke = StrokeFor(static_cast<std::int16_t>(c));
        if (stroke) {
            strokes.push_back(*stroke);
        } else {
            typeable = false;
        }
    }
    if (!handle || !typeable) {
        // No window to type into, or a name that no keys type.
        Driver::AnswerPrompt(prompt, answer);
        return;
    }
    // The activation of the window gives its text box the focus; where the
    // platform gave it none, the box takes it as the window would.
    if (window->focusWidget() != edit) edit->setFocus(Qt::ActiveWindowFocusReason);
    if (answer.text) {
        // The proposed text is selected: the first key types over it, and
        // an empty answer is the selection deleted.
        if (strokes.empty()) strokes.push_back({Qt::Key_Delete, QString(), Qt::NoModifier});
        for (const Stroke& s : strokes) {
            QTest::sendKeyEvent(QTest::Press, handle, s.key, s.text, s.modifiers);
            QTest::sendKeyEvent(QTest::Release, handle, s.key, s.text, s.modifiers);
        }
    }
    // Enter presses OK, the default button. The prompt goes with the press,
    // and its window soon after: the release belongs to no window of the
    // program any more.
    const Stroke enter = *StrokeFor(13);
    const QPointer<QWindow> alive(handle);
    QTest::sendKeyEvent(QTest::Press, handle, enter.key, enter.text, enter.modifiers);
    if (alive && alive->isVisible()) {
        QTest::sendKeyEvent(QTest::Release, handle, enter.key, enter.text, enter.modifiers);
    }
}

void GuiDriver::Settle() {
    // A round may post the events of the next (a shown window's first
    // geometry report, a deletion); a few rounds see the queue run dry.
    for (int round = 0; round < 4; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
}

}  // namespace scenario
