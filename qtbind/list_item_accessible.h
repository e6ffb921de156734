// An item of a list that screen readers find, made from the model and not
// from a widget, with no children of its own: a line of the tape, a memory
// cell. What each item says and where it lies is its own.
#pragma once

#include <QAccessibleInterface>

namespace qtbind {

class ListItemAccessible : public QAccessibleInterface {
  public:
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override { return QAccessible::ListItem; }
};

}  // namespace qtbind
