// The scenario's mouse on controls and on a form's own area, through the
// window system: clicks, double clicks, right clicks, releases and drags,
// each at a whole pixel where the program is told exactly the twips that
// the scenario names, or else sent to the program as without windows.
#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include "forms/runtime.h"
#include "qtbind/form_surface.h"
#include "qtbind/form_window.h"
#include "qtbind/qt_binding.h"
#include "scenario_gui/gui_driver.h"

namespace scenario {

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

std::optional<GuiDriver::Pointer> GuiDriver::PointerOnForm(const forms::Form& form, float x,
                                                           float y) const {
    qtbind::FormWindow* window = WindowOnScreen(form);
    QWidget* surface = window ? window->Surface() : nullptr;
    if (!surface || !surface->isVisible()) return std::nullopt;
    const qtbind::PixelScale& scale = binding_->Scale();
    const QPoint local(scale.ToPixelsX(x), scale.ToPixelsY(y));
    const bool exact = static_cast<float>(scale.ToTwipsX(local.x())) == x &&
                       static_cast<float>(scale.ToTwipsY(local.y())) == y;
    if (!exact || !surface->rect().contains(local)) return std::nullopt;
    auto pointer = PointerOn(surface, local);
    // No control, and no other window, may lie there.
    if (pointer && QApplication::widgetAt(pointer->global) != surface) return std::nullopt;
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
    const auto pointer = PointerOnForm(form, x, y);
    if (!pointer) {
        Driver::RightClickForm(form, x, y);
        DismissPopups();
        return;
    }
    QCursor::setPos(pointer->global);
    QTest::mouseClick(pointer->window, Qt::RightButton, Qt::NoModifier, pointer->at);
    DismissPopups();
}

void GuiDriver::StepOverSource(const Pointer& from, const forms::Control& source) {
    // A move to where the pointer already is reports nothing: it first
    // goes a pixel down (or up) and comes back, over the source all along.
    // (A move to the target that stays where the pointer is would only
    // repeat the same DragOver.)
    for (const QPoint step : {QPoint(0, 1), QPoint(0, -1)}) {
        if (binding_->ControlAt(from.global + step) != &source) continue;
        QTest::mouseMove(from.window, from.at + step);
        break;
    }
    QTest::mouseMove(from.window, from.at);
}

void GuiDriver::PressMoveRelease(const Pointer& from, const forms::Control& source,
                                 const Pointer& to) {
    QCursor::setPos(from.global);
    // The press begins the drag; the source holds the mouse from then on,
    // and the moves and the release reach it whichever window they are in.
    QTest::mousePress(from.window, Qt::LeftButton, Qt::NoModifier, from.at);
    StepOverSource(from, source);
    QTest::mouseMove(to.window, to.at);
    QTest::mouseRelease(to.window, Qt::LeftButton, Qt::NoModifier, to.at);
}

void GuiDriver::DragAndDrop(forms::Control& source, float sourceX, float sourceY,
                            forms::Control& target, float x, float y) {
    const auto from = PointerOver(source, sourceX, sourceY);
    const auto to = PointerOver(target, x, y);
    if (!from || !to) {
        Driver::DragAndDrop(source, sourceX, sourceY, target, x, y);
        return;
    }
    PressMoveRelease(*from, source, *to);
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

void GuiDriver::DragOverForm(forms::Control& source, forms::Form& target, float x, float y) {
    const auto to = PointerOnForm(target, x, y);
    if (!to) {
        Driver::DragOverForm(source, target, x, y);
        return;
    }
    QTest::mouseMove(to->window, to->at + QPoint(0, to->at.y() > 0 ? -1 : 1));
    forms::Runtime& runtime = source.Parent().GetRuntime();
    if (!runtime.BeginDrag(source)) return;
    QTest::mouseMove(to->window, to->at);
    QTest::keyClick(to->window, Qt::Key_Escape);
    if (runtime.Dragging()) runtime.CancelDrag();
}

void GuiDriver::ClickForm(forms::Form& form, float x, float y) {
    const auto pointer = PointerOnForm(form, x, y);
    if (!pointer) {
        Driver::ClickForm(form, x, y);
        return;
    }
    QCursor::setPos(pointer->global);
    QTest::mouseClick(pointer->window, Qt::LeftButton, Qt::NoModifier, pointer->at);
}

void GuiDriver::DblClickForm(forms::Form& form, float x, float y) {
    const auto pointer = PointerOnForm(form, x, y);
    if (!pointer) {
        Driver::DblClickForm(form, x, y);
        return;
    }
    QCursor::setPos(pointer->global);
    QTest::mouseDClick(pointer->window, Qt::LeftButton, Qt::NoModifier, pointer->at);
}

void GuiDriver::MouseUpForm(forms::Form& form, float x, float y) {
    const auto pointer = PointerOnForm(form, x, y);
    QWidget* surface = pointer ? binding_->WindowFor(form)->Surface() : nullptr;
    if (!surface) {
        Driver::MouseUpForm(form, x, y);
        return;
    }
    // A button let go over the form after it went down elsewhere. Qt drops
    // a release of a button that it never saw pressed, so the release comes
    // straight to the widget under the pointer, as the window system would
    // deliver it there.
    QCursor::setPos(pointer->global);
    const QPoint local = surface->mapFromGlobal(pointer->global);
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(local), QPointF(pointer->global),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(surface, &release);
}

void GuiDriver::DragToForm(forms::Control& source, float sourceX, float sourceY,
                           forms::Form& target, float x, float y) {
    const auto from = PointerOver(source, sourceX, sourceY);
    const auto to = PointerOnForm(target, x, y);
    if (!from || !to) {
        Driver::DragToForm(source, sourceX, sourceY, target, x, y);
        return;
    }
    PressMoveRelease(*from, source, *to);
}

void GuiDriver::DblClick(forms::Control& control) {
    // A control that drags automatically begins a drag with the first press
    // of a double click: no pointer can double-click it, and its DblClick
    // comes as the program's own call of it would.
    const auto pointer = control.DragAutomatic()
                             ? std::nullopt
                             : PointerOver(control, static_cast<float>(control.Width() / 2),
                                           static_cast<float>(control.Height() / 2));
    if (!pointer) {
        Driver::DblClick(control);
        return;
    }
    QCursor::setPos(pointer->global);
    QTest::mouseDClick(pointer->window, Qt::LeftButton, Qt::NoModifier, pointer->at);
}

}  // namespace scenario
