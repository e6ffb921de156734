#include "qtbind/form_input.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QWidget>

#include "forms/runtime.h"
#include "qtbind/form_click.h"
#include "qtbind/key_codes.h"

namespace qtbind {

namespace {

int ButtonNumber(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return forms::kLeftButton;
        case Qt::RightButton:
            return forms::kRightButton;
        case Qt::MiddleButton:
            return 4;
        default:
            return 0;
    }
}

// A button keeps its left button, to be clicked, and a text box every
// press, to place the cursor and select; any other press ends at the
// control it was meant for and never reaches the form beneath it.
bool WidgetActsOnMouse(const QWidget* widget, Qt::MouseButton button) {
    if (qobject_cast<const QLineEdit*>(widget)) return true;
    return qobject_cast<const QAbstractButton*>(widget) && button == Qt::LeftButton;
}

bool IsTab(const QKeyEvent& event) {
    return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

// Ctrl+C, and Ctrl+Insert of the older desktops.
bool IsCopy(const QKeyEvent& event) {
    const Qt::KeyboardModifiers mods = event.modifiers() & ~Qt::KeypadModifier;
    if (mods != Qt::ControlModifier) return false;
    return event.key() == Qt::Key_C || event.key() == Qt::Key_Insert;
}

// The context menu key, and Shift+F10 where a keyboard has none.
bool IsPopupKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers mods = event.modifiers() & ~Qt::KeypadModifier;
    if (event.key() == Qt::Key_Menu) return mods == Qt::NoModifier;
    return event.key() == Qt::Key_F10 && mods == Qt::ShiftModifier;
}

}  // namespace

FormInput::FormInput(forms::Form& form, const PixelScale& scale, std::function<void()> afterEvent)
    : form_(&form), scale_(scale), afterEvent_(std::move(afterEvent)) {}

void FormInput::Watch(QWidget* widget, forms::Control* control, bool keysOnly) {
    if (!widget) return;
    watched_[widget] = Watched{control, keysOnly};
    widget->installEventFilter(this);
    QObject::connect(widget, &QObject::destroyed, this,
                     [this](QObject* gone) { watched_.erase(gone); });
}

void FormInput::Detach() {
    form_ = nullptr;
    if (heldForRelease_ && QWidget::mouseGrabber() == heldForRelease_) {
        heldForRelease_->releaseMouse();
    }
    heldForRelease_ = nullptr;
}

bool FormInput::FormHasKeys() const {
    return form_->KeyPress || form_->KeyDown || form_->KeyUp;
}

// A key goes first to the focused widget and, when that one leaves it, on to
// its parents; only the first of these deliveries is the user's key. A form
// that previews keys keeps each one where it first sees it, so it can take
// a key sent straight to any of its widgets.
bool FormInput::IsFirstDelivery(QObject* watched) const {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget) return false;
    QWidget* focus = QApplication::focusWidget();
    // Keys that the menu bar leaves while it has the keyboard are not typing.
    if (qobject_cast<QMenuBar*>(focus)) return false;
    if (FormHasKeys()) return true;
    if (focus && focus->window() == widget->window()) return focus == widget;
    return widget->isWindow();
}

bool FormInput::eventFilter(QObject* watched, QEvent* event) {
    if (!form_ || form_->GetRuntime().Ended()) return false;
    auto found = watched_.find(watched);
    if (found == watched_.end()) return false;
    forms::Control* control = found->second.control;
    const QEvent::Type type = event->type();
    if (found->second.keysOnly && type != QEvent::KeyPress && type != QEvent::KeyRelease) {
        return false;
    }
    switch (type) {
        case QEvent::KeyPress:
            return KeyPressed(watched, control, static_cast<QKeyEvent&>(*event));
        case QEvent::KeyRelease:
            return KeyReleased(watched, static_cast<QKeyEvent&>(*event));
        case QEvent::MouseButtonPress:
            return MousePressed(static_cast<QWidget*>(watched), control,
                                static_cast<QMouseEvent&>(*event));
        case QEvent::MouseButtonRelease:
            return MouseReleased(static_cast<QWidget*>(watched), control,
                                 static_cast<QMouseEvent&>(*event));
        case QEvent::MouseButtonDblClick:
            return DoubleClicked(static_cast<QWidget*>(watched), control);
        case QEvent::FocusIn:
            FocusGained(control);
            return false;
        default:
            return false;
    }
}

bool FormInput::KeyPressed(QObject* watched, forms::Control* control, QKeyEvent& event) {
    if (!IsFirstDelivery(watched) || IsTab(event)) return false;
    if (PressedAButton(control, event)) return true;
    const int shift = ShiftState(event.modifiers());
    std::int16_t keyCode = KeyCode(event).value_or(0);
    const bool known = KeyCode(event).has_value();
    if (known && form_->KeyDown) form_->KeyDown(keyCode, shift);
    if (form_ && known && keyCode != 0 && control && control->KeyDown) {
        control->KeyDown(keyCode, shift);
    }
    if (form_ && form_->KeyPress) {
        if (auto ascii = KeyAscii(event)) {
            std::int16_t keyAscii = *ascii;
            form_->KeyPress(keyAscii);
        }
    }
    // The program's own keys have had the key first, and acted on it as they
    // always have (on none of these, as it happens); the copy and the popup
    // are roads beside them. A text box copies its own selection.
    bool command = false;
    if (form_ && IsCopy(event) && copy_ && !qobject_cast<QLineEdit*>(watched)) {
        copy_();
        command = true;
    } else if (form_ && IsPopupKey(event) && popupKey_) {
        popupKey_();
        command = true;
    }
    // The form that previews keys keeps them; a control whose KeyDown took
    // the key (set it to 0) keeps it from its widget.
    const bool consumed = command || (form_ && FormHasKeys()) || (known && keyCode == 0);
    if (afterEvent_) afterEvent_();
    return consumed;
}

// On a dialog without keyboard handlers of its own, Escape presses the
// cancel button (from a text box too) and Enter the focused button, or else
// the default button; a text box presses the default button itself.
bool FormInput::PressedAButton(forms::Control* control, const QKeyEvent& event) {
    if (FormHasKeys() || event.modifiers() & ~Qt::KeypadModifier) return false;
    const bool escape = event.key() == Qt::Key_Escape;
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!escape && !enter) return false;
    if (enter && control && control->Kind() == forms::ControlKind::TextBox) return false;
    forms::Control* button = nullptr;
    if (enter && control && control->Kind() == forms::ControlKind::CommandButton) {
        button = control;
    } else {
        for (const auto& c : form_->Controls()) {
            if ((escape ? c->IsCancel() : c->IsDefault()) && c->Visible() && c->Enabled()) {
                button = c.get();
                break;
            }
        }
    }
    if (!button) return false;
    if (button->Click) button->Click();
    if (afterEvent_) afterEvent_();
    return true;
}

bool FormInput::KeyReleased(QObject* watched, QKeyEvent& event) {
    if (!IsFirstDelivery(watched) || IsTab(event)) return false;
    if (event.isAutoRepeat()) return FormHasKeys();
    const bool consumed = FormHasKeys();
    if (auto code = KeyCode(event); code && form_->KeyUp) {
        std::int16_t keyCode = *code;
        form_->KeyUp(keyCode, ShiftState(event.modifiers()));
        if (afterEvent_) afterEvent_();
    }
    return consumed;
}

FormInput::ModelMouse FormInput::ToModel(const QMouseEvent& event) const {
    const QPointF at = event.position();
    return {ButtonNumber(event.button()), ShiftState(event.modifiers()),
            static_cast<float>(scale_.ToTwipsX(static_cast<int>(at.x()))),
            static_cast<float>(scale_.ToTwipsY(static_cast<int>(at.y())))};
}

bool FormInput::MousePressed(QWidget* widget, forms::Control* control, QMouseEvent& event) {
    const auto [button, shift, x, y] = ToModel(event);
    if (event.button() == Qt::LeftButton) leftPressedOn_ = widget;
    if (pressHook_) {
        pressHook_();
        if (!form_ || form_->GetRuntime().Ended()) return true;
    }
    // Through the runtime, which begins the drag of a control that drags
    // automatically once its MouseDown has chosen the icon.
    forms::Runtime& runtime = form_->GetRuntime();
    if (control) {
        runtime.PressMouse(*control, button, shift, x, y);
    } else {
        runtime.PressMouse(*form_, button, shift, x, y);
    }
    if (afterEvent_) afterEvent_();
    return !WidgetActsOnMouse(widget, event.button());
}

bool FormInput::MouseReleased(QWidget* widget, forms::Control* control, QMouseEvent& event) {
    const auto [button, shift, x, y] = ToModel(event);
    // A click is the left button pressed and let go on the same widget.
    const bool clicked = event.button() == Qt::LeftButton && leftPressedOn_ == widget &&
                         widget->rect().contains(event.position().toPoint());
    if (event.button() == Qt::LeftButton) leftPressedOn_ = nullptr;
    if (heldForRelease_ == widget && QWidget::mouseGrabber() == widget) widget->releaseMouse();
    heldForRelease_ = nullptr;
    if (control) {
        if (control->MouseUp) control->MouseUp(button, shift, x, y);
    } else {
        ReleaseOnForm(*form_, button, shift, x, y, clicked);
    }
    if (afterEvent_) afterEvent_();
    return !WidgetActsOnMouse(widget, event.button());
}

bool FormInput::DoubleClicked(QWidget* widget, forms::Control* control) {
    if (control) {
        // A button takes a double click as two clicks, as on its desktop.
        if (control->Kind() == forms::ControlKind::PushButton ||
            control->Kind() == forms::ControlKind::CommandButton) {
            return false;
        }
        if (control->DblClick) control->DblClick();
    } else if (form_->DblClick) {
        form_->DblClick();
    }
    // A handler that put up a modal window (the name prompt) made Qt forget
    // where the button went down, and the release would reach nobody: the
    // widget holds the mouse until the button that is still down is let go.
    if (form_ && widget->isVisible() && !QWidget::mouseGrabber() &&
        (QGuiApplication::mouseButtons() & Qt::LeftButton)) {
        widget->grabMouse();
        heldForRelease_ = widget;
    }
    if (afterEvent_) afterEvent_();
    return !WidgetActsOnMouse(widget, Qt::LeftButton);
}

void FormInput::FocusGained(forms::Control* control) {
    if (applyingFocus_ || !control || !control->CanFocus()) return;
    forms::Runtime& runtime = form_->GetRuntime();
    if (runtime.Focus() == control) return;
    runtime.SetFocus(*control);
    if (afterEvent_) afterEvent_();
}

}  // namespace qtbind
