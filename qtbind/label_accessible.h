// What a screen reader finds on a label of the program (the readout, the
// operation, the converter's lines, a title): its name from the table of
// names, and what it shows through the text interface, which tells of
// every change (ControlView sends the updates).
#pragma once

#include <QAccessibleWidget>
#include <QLabel>

#include "qtbind/read_only_text.h"

namespace qtbind {

class LabelAccessible : public QAccessibleWidget, public ReadOnlyText {
  public:
    explicit LabelAccessible(QLabel* label);

    // A label of the model's forms reads through this interface; other
    // labels (in Qt's own dialogs) keep Qt's.
    static void Mark(QLabel* label);
    static bool Marked(const QObject* object);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString CurrentText() const override;
};

}  // namespace qtbind
