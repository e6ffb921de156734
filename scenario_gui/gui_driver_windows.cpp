// What the scenario's user does to whole windows: moves and sizes them,
// presses the buttons of their title bars and their close boxes, activates
// them. A desktop window is handled as the window system would handle it;
// a memory cell, which draws its own frame, with the mouse on that frame.
#include <QApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include "forms/runtime.h"
#include "qtbind/form_window.h"
#include "qtbind/qt_binding.h"
#include "scenario_gui/gui_driver.h"

namespace scenario {

namespace {

// A point of the caption on a cell's title bar, clear of its close box.
QPoint CaptionPoint(const QRect& titleBar) {
    return QPoint(titleBar.left() + titleBar.width() / 3, titleBar.center().y());
}

}  // namespace

std::optional<GuiDriver::Pointer> GuiDriver::PointerOnFrame(qtbind::FormWindow& window,
                                                            const QPoint& local) const {
    auto pointer = PointerOn(&window, local);
    // Another cell in front of this one would take the press.
    if (!pointer || QApplication::widgetAt(pointer->global) != &window) return std::nullopt;
    return pointer;
}

void GuiDriver::DragPointer(const Pointer& from, const Pointer& to) {
    QCursor::setPos(from.global);
    QTest::mousePress(from.window, Qt::LeftButton, Qt::NoModifier, from.at);
    // The widget pressed on holds the mouse until it is let go, wherever
    // the pointer goes.
    const QPoint at = from.window->mapFromGlobal(to.global);
    QTest::mouseMove(from.window, at);
    QTest::mouseRelease(from.window, Qt::LeftButton, Qt::NoModifier, at);
}

void GuiDriver::MoveCell(qtbind::FormWindow& window, double left, double top, double width,
                         double height) {
    const auto placement = window.PlacementFor(left, top, width, height);
    const QPoint shift = placement.position - window.pos();
    const auto grip = PointerOnFrame(window, CaptionPoint(*window.TitleBar()));
    if (shift != QPoint() && grip) {
        // Carried by its title bar.
        Pointer to = *grip;
        to.global += shift;
        DragPointer(*grip, to);
        Settle();
    }
    const QSize growth = placement.size - window.size();
    const auto corner = PointerOnFrame(window, QPoint(window.width() - 1, window.height() - 1));
    if (!growth.isNull() && corner) {
        // Sized by its bottom right corner.
        Pointer to = *corner;
        to.global += QPoint(growth.width(), growth.height());
        DragPointer(*corner, to);
    }
    // What the mouse could not reach (a cell covered where it would be
    // taken hold of) comes as the window system's report would.
    if ((shift != QPoint() && !grip) || (!growth.isNull() && !corner)) {
        model_.MoveWindow(*window.Form(), left, top, width, height);
    }
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
    if (window->TitleBar()) {
        MoveCell(*window, left, top, width, height);
        return;
    }
    // The window system moves and sizes the window and tells the binding,
    // which reports to the model what the user did. A fixed frame keeps its
    // size, whatever the scenario asks.
    const auto placement = window->PlacementFor(left, top, width, height);
    if (window->pos() != placement.position) window->move(placement.position);
    if (window->size() != placement.size) window->resize(placement.size);
}

void GuiDriver::SetWindowState(forms::Form& form, std::int16_t state) {
    qtbind::FormWindow* window = binding_ ? binding_->WindowFor(form) : nullptr;
    // A cell's frame has no such buttons.
    if (!window || !window->isVisible() || !window->isWindow()) {
        model_.SetWindowState(form, state);
        return;
    }
    // The buttons of the title bar.
    if (state == forms::kMinimized) {
        window->showMinimized();
    } else if (state == forms::kMaximized) {
        window->showMaximized();
    } else {
        window->showNormal();
    }
}

void GuiDriver::CloseWindow(forms::Form& form) {
    qtbind::FormWindow* window = binding_ ? binding_->WindowFor(form) : nullptr;
    if (!window || !window->isVisible()) {
        model_.CloseWindow(form);
        return;
    }
    if (window->CloseBox()) {
        // A cell's own close box, clicked.
        if (const auto box = PointerOnFrame(*window, window->CloseBox()->center())) {
            QTest::mouseClick(box->window, Qt::LeftButton, Qt::NoModifier, box->at);
        } else {
            model_.CloseWindow(form);
        }
        return;
    }
    // The close box: the window system asks the window to close.
    window->close();
}

void GuiDriver::Activate(forms::Form& form) {
    qtbind::FormWindow* window = WindowOnScreen(form);
    if (window && window->TitleBar()) {
        // A press on the cell's title bar makes it the active one.
        if (const auto grip = PointerOnFrame(*window, CaptionPoint(*window->TitleBar()))) {
            QTest::mouseClick(grip->window, Qt::LeftButton, Qt::NoModifier, grip->at);
            return;
        }
    } else if (window && QApplication::activeWindow() != window) {
        window->activateWindow();
        return;
    }
    // Already the active window on the desktop (or out of reach): only the
    // program can raise its Activate.
    Driver::Activate(form);
}

}  // namespace scenario
