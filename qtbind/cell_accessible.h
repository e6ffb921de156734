// The memory cells as a screen reader finds them. The memory window's inner
// area is a list, "Memory cells", of every open cell; each cell is an item
// named by the cell's name, whose text is its value, with four actions:
// "Add the readout", "Subtract the readout", "Clear" and "Show tape"
// (CellActions tells what each one does). Neither stands on a cell's
// widgets, which a cell has only while it shows.
#pragma once

#include <QAccessibleWidget>

#include "qtbind/list_item_accessible.h"
#include "qtbind/read_only_text.h"

namespace forms {
class Form;
}

namespace qtbind {

class CellAccess;

class CellAccessible : public ListItemAccessible,
                       public ReadOnlyText,
                       public QAccessibleActionInterface {
  public:
    CellAccessible(CellAccess& access, forms::Form& cell) : access_(access), cell_(cell) {}

    bool isValid() const override;
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QString CurrentText() const override;
    const forms::Form& Cell() const { return cell_; }

    QStringList actionNames() const override;
    QString localizedActionDescription(const QString& name) const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    CellAccess& access_;
    forms::Form& cell_;
};

// The memory window's inner area: the list of the cells.
class CellsAccessible : public QAccessibleWidget {
  public:
    explicit CellsAccessible(QWidget* area);

    QString text(QAccessible::Text t) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

  private:
    CellAccess* Access() const;
};

}  // namespace qtbind
