#include "qtbind/qt_message_boxes.h"

#include <QApplication>
#include <QMessageBox>

namespace qtbind {

namespace {

QMessageBox::Icon IconOf(forms::MessageIcon icon) {
    switch (icon) {
        case forms::MessageIcon::Critical:
            return QMessageBox::Critical;
        case forms::MessageIcon::Question:
            return QMessageBox::Question;
        case forms::MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case forms::MessageIcon::Information:
            return QMessageBox::Information;
        case forms::MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

void AddButtons(QMessageBox& box, forms::MessageButtons buttons) {
    switch (buttons) {
        case forms::MessageButtons::OkOnly:
            box.setStandardButtons(QMessageBox::Ok);
            box.setEscapeButton(QMessageBox::Ok);
            break;
        case forms::MessageButtons::OkCancel:
            box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
            box.setEscapeButton(QMessageBox::Cancel);
            break;
        case forms::MessageButtons::YesNo:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
            box.setEscapeButton(QMessageBox::No);
            break;
        case forms::MessageButtons::YesNoCancel:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
            box.setEscapeButton(QMessageBox::Cancel);
            break;
    }
}

forms::MessageAnswer AnswerOf(int button, forms::MessageButtons buttons) {
    switch (button) {
        case QMessageBox::Ok:
            return forms::MessageAnswer::Ok;
        case QMessageBox::Yes:
            return forms::MessageAnswer::Yes;
        case QMessageBox::No:
            return forms::MessageAnswer::No;
        case QMessageBox::Cancel:
            return forms::MessageAnswer::Cancel;
        default:
            // A box shut some other way gives the answer of its escape.
            if (buttons == forms::MessageButtons::OkOnly) return forms::MessageAnswer::Ok;
            if (buttons == forms::MessageButtons::YesNo) return forms::MessageAnswer::No;
            return forms::MessageAnswer::Cancel;
    }
}

}  // namespace

forms::MessageAnswer QtMessageBoxes::Show(const std::string& text, const std::string& title,
                                          forms::MessageButtons buttons, forms::MessageIcon icon) {
    QMessageBox box(QApplication::activeWindow());
    // The box must come in front of windows that float above everything.
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.setIcon(IconOf(icon));
    box.setWindowTitle(title.empty() ? QApplication::applicationDisplayName()
                                     : QString::fromStdString(title));
    box.setText(QString::fromStdString(text));
    box.setTextFormat(Qt::PlainText);
    AddButtons(box, buttons);
    return AnswerOf(box.exec(), buttons);
}

}  // namespace qtbind
