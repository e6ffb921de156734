#include "qtbind/control_view.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "forms/form.h"
#include "forms/grid.h"
#include "qtbind/accessible_names.h"
#include "qtbind/announce.h"
#include "qtbind/font_map.h"
#include "qtbind/grid_view.h"
#include "qtbind/key_button.h"
#include "qtbind/label_accessible.h"
#include "qtbind/line_view.h"
#include "qtbind/model_color.h"
#include "qtbind/program_icon.h"

namespace qtbind {

namespace {

Qt::Alignment LabelAlignment(forms::Alignment a) {
    // Label text starts at the top of its box, as on the program's desktop.
    switch (a) {
        case forms::Alignment::Right:
            return Qt::AlignRight | Qt::AlignTop;
        case forms::Alignment::Center:
            return Qt::AlignHCenter | Qt::AlignTop;
        default:
            return Qt::AlignLeft | Qt::AlignTop;
    }
}

void SetPaletteColor(QWidget* w, QPalette::ColorRole role, const QColor& color) {
    if (w->palette().color(role) == color) return;
    QPalette p = w->palette();
    p.setColor(role, color);
    w->setPalette(p);
}

}  // namespace

ControlView::ControlView(forms::Control& control, QWidget* parent, const PixelScale& scale,
                         std::function<void(forms::Control&)> clicked)
    : control_(&control), scale_(scale), clicked_(std::move(clicked)) {
    widget_ = MakeWidget(parent);
    if (!widget_) return;
    widget_->setObjectName(QString::fromStdString(control.FullName()));
    Apply();
}

QWidget* ControlView::MakeWidget(QWidget* parent) {
    switch (control_->Kind()) {
        case forms::ControlKind::Label:
        case forms::ControlKind::Picture: {
            auto* label = new QLabel(parent);
            if (control_->Kind() == forms::ControlKind::Label) LabelAccessible::Mark(label);
            label->setTextFormat(Qt::PlainText);
            label->setWordWrap(true);
            label->setMargin(0);
            // A framed label writes its text right against the frame: Qt
            // would otherwise keep half an "x" clear on the aligned sides,
            // which pushes a value down out of a cell's short label.
            label->setIndent(0);
            return label;
        }
        case forms::ControlKind::PushButton:
        case forms::ControlKind::CommandButton: {
            QAbstractButton* button = nullptr;
            if (control_->Kind() == forms::ControlKind::PushButton) {
                button = new KeyButton(parent);
            } else {
                auto* plain = new QPushButton(parent);
                plain->setAutoDefault(false);
                // Drawn as the default button; the text box presses it.
                plain->setDefault(control_->IsDefault());
                button = plain;
            }
            QObject::connect(button, &QAbstractButton::clicked, button, [this] {
                if (control_ && clicked_) clicked_(*control_);
            });
            return button;
        }
        case forms::ControlKind::Grid:
            return new GridView(static_cast<forms::Grid&>(*control_), scale_, parent);
        case forms::ControlKind::TextBox: {
            auto* edit = new QLineEdit(parent);
            edit->setFrame(true);
            // Typing changes the model's text, as the text box's own edits do.
            QObject::connect(edit, &QLineEdit::textEdited, edit, [this](const QString& text) {
                if (!control_ || settingText_) return;
                settingText_ = true;
                control_->SetCaption(text.toStdString());
                settingText_ = false;
            });
            // Enter in the text box presses the form's default button.
            QObject::connect(edit, &QLineEdit::returnPressed, edit, [this] {
                if (!control_ || !clicked_) return;
                for (const auto& c : control_->Parent().Controls()) {
                    if (!c->IsDefault() || !c->Visible() || !c->Enabled()) continue;
                    clicked_(*c);
                    return;
                }
            });
            return edit;
        }
        case forms::ControlKind::Line:
            return new LineView(parent);
        case forms::ControlKind::Image:
        case forms::ControlKind::CommonDialog:
            return nullptr;
    }
    return nullptr;
}

void ControlView::Apply() {
    if (!control_ || !widget_) return;
    ApplyGeometry();
    ApplyLooks();
    ApplyCaption();
    const QString tip = QString::fromStdString(control_->ToolTipText());
    if (widget_->toolTip() != tip) widget_->setToolTip(tip);
    ApplyAccessibleText();
    if (widget_->isEnabled() != control_->Enabled()) widget_->setEnabled(control_->Enabled());
    if (widget_->isHidden() == control_->Visible()) widget_->setVisible(control_->Visible());
}

void ControlView::ApplyAccessibleText() {
    if (!control_ || !widget_) return;
    const QString name = AccessibleName(*control_);
    if (widget_->accessibleName() != name) widget_->setAccessibleName(name);
    // What the tool tip says of the control, a screen reader says too. What
    // a label shows it reads through the label's text.
    const QString description = QString::fromStdString(control_->ToolTipText());
    if (widget_->accessibleDescription() != description) {
        widget_->setAccessibleDescription(description);
    }
}

void ControlView::SetCovered(bool covered) {
    if (!widget_) return;
    if (!coveredSet_) {
        ownFocus_ = widget_->focusPolicy();
        coveredSet_ = true;
    }
    const Qt::FocusPolicy policy = covered ? Qt::NoFocus : ownFocus_;
    if (widget_->focusPolicy() != policy) widget_->setFocusPolicy(policy);
}

void ControlView::ApplyGeometry() {
    QRect r =
        scale_.ToPixels(control_->Left(), control_->Top(), control_->Width(), control_->Height());
    if (control_->Kind() == forms::ControlKind::Line) {
        // A rule of no height still needs a pixel to be drawn in.
        r.setSize(r.size() + QSize(1, 1));
    }
    if (widget_->geometry() != r) widget_->setGeometry(r);
}

void ControlView::ApplyLooks() {
    const QFont font = MapFont(control_->GetFont(), scale_);
    if (widget_->font() != font) widget_->setFont(font);
    const QColor back = ModelColor(control_->BackColor());
    const QColor fore = ModelColor(control_->ForeColor());
    switch (control_->Kind()) {
        case forms::ControlKind::Label:
        case forms::ControlKind::Picture: {
            auto* label = static_cast<QLabel*>(widget_);
            SetPaletteColor(label, QPalette::WindowText, fore);
            SetPaletteColor(label, QPalette::Window, back);
            const bool fill = !control_->BackTransparent();
            if (label->autoFillBackground() != fill) label->setAutoFillBackground(fill);
            const int frame =
                control_->BorderSingle() ? (QFrame::Panel | QFrame::Sunken) : QFrame::NoFrame;
            if (label->frameStyle() != frame) label->setFrameStyle(frame);
            const Qt::Alignment align = LabelAlignment(control_->GetAlignment());
            if (label->alignment() != align) label->setAlignment(align);
            break;
        }
        case forms::ControlKind::PushButton:
            SetPaletteColor(widget_, QPalette::Button, back);
            SetPaletteColor(widget_, QPalette::ButtonText, fore);
            break;
        case forms::ControlKind::Grid:
            static_cast<GridView*>(widget_)->ModelChanged();
            break;
        case forms::ControlKind::Line:
            static_cast<LineView*>(widget_)->SetColor(fore);
            break;
        default:
            break;
    }
}

void ControlView::ApplyCaption() {
    const QString caption = DisplayCaption(*control_);
    switch (control_->Kind()) {
        case forms::ControlKind::Picture:
            // A picture box holds the program's icon, at its own size.
            if (caption.isEmpty()) {
                auto* label = static_cast<QLabel*>(widget_);
                const QSize size = label->size();
                if (label->pixmap().deviceIndependentSize().toSize() != size) {
                    label->setPixmap(ProgramIcon().pixmap(size, label->devicePixelRatioF()));
                }
                break;
            }
            [[fallthrough]];
        case forms::ControlKind::Label: {
            auto* label = static_cast<QLabel*>(widget_);
            if (label->text() == caption) break;
            const QString before = label->text();
            label->setText(caption);
            // A screen reader hears what the readout (or any label) shows now.
            if (control_->Kind() == forms::ControlKind::Label) {
                QAccessibleTextUpdateEvent event(label, 0, before, caption);
                Announce(event);
            }
            break;
        }
        case forms::ControlKind::PushButton:
        case forms::ControlKind::CommandButton: {
            auto* button = static_cast<QAbstractButton*>(widget_);
            if (button->text() != caption) button->setText(caption);
            break;
        }
        case forms::ControlKind::TextBox: {
            if (settingText_) break;
            auto* edit = static_cast<QLineEdit*>(widget_);
            const bool newText = edit->text() != caption;
            if (newText) edit->setText(caption);
            // The program's selection, where it set one; the user's own stays
            // while the program leaves it alone.
            const std::pair<int, int> selection{control_->SelStart(), control_->SelLength()};
            if (newText || selection != appliedSelection_) {
                appliedSelection_ = selection;
                if (selection.second > 0) {
                    edit->setSelection(selection.first, selection.second);
                } else {
                    edit->setCursorPosition(selection.first);
                }
            }
            break;
        }
        default:
            break;
    }
}

void ControlView::Detach() {
    control_ = nullptr;
    if (auto* grid = dynamic_cast<GridView*>(widget_)) grid->Detach();
}

}  // namespace qtbind
