#include "scenario_gui/gui_driver.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
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
    if (!window) return nullptr;
    QWidget* frame = window->Frame();
    if (!frame->isVisible() || frame->isMinimized()) return nullptr;
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

void GuiDriver::MoveWindow(forms::Form& form, double left, double top, double width,
                           double height) {
    qtbind::FormWindow* window = WindowOnScreen(form);
    if (!window) {
        // Nobody can take hold of a window that is not on screen; the
        // scenario's move reaches the model as the window system's report
        // would, with no real window to carry it.
        model_.MoveWindow(form, left, top, width, height);
        return;
    }
    // The window system moves and sizes the window and tells the binding,
    // which reports to the model what the user did. A fixed frame keeps its
    // size, whatever the scenario asks.
    const auto placement = window->PlacementFor(left, top, width, height);
    QWidget* frame = window->Frame();
    if (frame->pos() != placement.position) frame->move(placement.position);
    if (frame->size() != placement.size) frame->resize(placement.size);
}

void GuiDriver::SetWindowState(forms::Form& form, std::int16_t state) {
    qtbind::FormWindow* window = binding_ ? binding_->WindowFor(form) : nullptr;
    QWidget* frame = window ? window->Frame() : nullptr;
    if (!frame || !frame->isVisible()) {
        model_.SetWindowState(form, state);
        return;
    }
    // The buttons of the title bar.
    if (state == forms::kMinimized) {
        frame->showMinimized();
    } else if (state == forms::kMaximized) {
        frame->showMaximized();
    } else {
        frame->showNormal();
    }
}

void GuiDriver::CloseWindow(forms::Form& form) {
    qtbind::FormWindow* window = binding_ ? binding_->WindowFor(form) : nullptr;
    QWidget* frame = window ? window->Frame() : nullptr;
    if (!frame || !frame->isVisible()) {
        model_.CloseWindow(form);
        return;
    }
    // The close box: the window system asks the window to close.
    frame->close();
}

std::optional<GuiDriver::Pointer> GuiDriver::PointerOn(QWidget* widget, const QPoint& local) const {
    QWidget* top = widget->window();
    QWindow* handle = top->windowHandle();
    if (!handle) return std::nullopt;
    return Pointer{handle, widget->mapTo(top, local), widget->mapToGlobal(local)};
}

std::optional<GuiDriver::Pointer> GuiDriver::PointerOver(const forms::Control& control, float x,
                                                         float y) const {
    if (!binding_ || !WindowOnScreen(control.Parent())) return std::nullopt;
    QWidget* widget = binding_->WidgetFor(control);
    if (!widget || !widget->isVisible()) return std::nullopt;
    const qtbind::PixelScale& scale = binding_->Scale();
    const QPoint local(scale.ToPixelsX(x), scale.ToPixelsY(y));
    if (static_cast<float>(scale.ToTwipsX(local.x())) != x ||
        static_cast<float>(scale.ToTwipsY(local.y())) != y || !widget->rect().contains(local)) {
        return std::nullopt;
    }
    auto pointer = PointerOn(widget, local);
    // The program must find the same control under the pointer, at the same
    // place: nothing lies in front of it there.
    QPoint found;
    if (!pointer || binding_->ControlAt(pointer->global, &found) != &control || found != local) {
        return std::nullopt;
    }
    return pointer;
}

void GuiDriver::DismissPopups() {
    while (QWidget* popup = QApplication::activePopupWidget()) {
        QTest::keyClick(popup, Qt::Key_Escape);
        if (QApplication::activePopupWidget() == popup) popup->close();
    }
}

void GuiDriver::RightClick(forms::Control& control, float x, float y) {
    const auto pointer = PointerOver(control, x, y);
    if (!pointer) {
        Driver::RightClick(control, x, y);
        DismissPopups();
        return;
    }
    // The pointer goes there first, so that the menu pops up where it is.
    QCursor::setPos(pointer->global);
    QTest::mouseClick(pointer->window, Qt::RightButton, Qt::NoModifier, pointer->at);
    DismissPopups();
}

void GuiDriver::RightClickForm(forms::Form& form, float x, float y) {
    qtbind::FormWindow* window = WindowOnScreen(form);
    QWidget* surface = window ? window->Surface() : nullptr;
    std::optional<Pointer> pointer;
    if (surface && surface->isVisible()) {
        const qtbind::PixelScale& scale = binding_->Scale();
        const QPoint local(scale.ToPixelsX(x), scale.ToPixelsY(y));
        const bool exact = static_cast<float>(scale.ToTwipsX(local.x())) == x &&
                           static_cast<float>(scale.ToTwipsY(local.y())) == y;
        if (exact && surface->rect().contains(local)) pointer = PointerOn(surface, local);
        // No control may lie there.
        if (pointer && QApplication::widgetAt(pointer->global) != surface) pointer.reset();
    }
    if (!pointer) {
        Driver::RightClickForm(form, x, y);
        DismissPopups();
        return;
    }
    QCursor::setPos(pointer->global);
    QTest::mouseClick(pointer->window, Qt::RightButton, Qt::NoModifier, pointer->at);
    DismissPopups();
}

void GuiDriver::DragAndDrop(forms::Control& source, float sourceX, float sourceY,
                            forms::Control& target, float x, float y) {
    const auto from = PointerOver(source, sourceX, sourceY);
    const auto to = PointerOver(target, x, y);
    if (!from || !to) {
        Driver::DragAndDrop(source, sourceX, sourceY, target, x, y);
        return;
    }
    QCursor::setPos(from->global);
    // The press begins the drag; the source holds the mouse from then on,
    // and the moves and the release reach it whichever window they are in.
    QTest::mousePress(from->window, Qt::LeftButton, Qt::NoModifier, from->at);
    // A move to where the pointer already is reports nothing: it first
    // goes a pixel down (or up) and comes back, over the source all along.
    // (A move to the target that stays where the pointer is would only
    // repeat the same DragOver.)
    for (const QPoint step : {QPoint(0, 1), QPoint(0, -1)}) {
        if (binding_->ControlAt(from->global + step) != &source) continue;
        QTest::mouseMove(from->window, from->at + step);
        break;
    }
    QTest::mouseMove(from->window, from->at);
    QTest::mouseMove(to->window, to->at);
    QTest::mouseRelease(to->window, Qt::LeftButton, Qt::NoModifier, to->at);
}

void GuiDriver::DragOver(forms::Control& source, forms::Control& target, float x, float y) {
    const auto to = PointerOver(target, x, y);
    if (!to) {
        Driver::DragOver(source, target, x, y);
        return;
    }
    // A move to where the pointer already is reports nothing: before the
    // drag it steps a pixel aside, where a move does nothing.
    QTest::mouseMove(to->window, to->at + QPoint(0, to->at.y() > 0 ? -1 : 1));
    // No press: the drag begins as the program itself would begin it.
    forms::Runtime& runtime = source.Parent().GetRuntime();
    if (!runtime.BeginDrag(source)) return;
    QTest::mouseMove(to->window, to->at);
    QTest::keyClick(to->window, Qt::Key_Escape);
    // Escape ends every drag; one that outlived it ends here all the same.
    if (runtime.Dragging()) runtime.CancelDrag();
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
