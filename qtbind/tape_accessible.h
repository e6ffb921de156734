// The tape as a screen reader finds it: a list named "Tape" whose items are
// the lines of the tape on show, without the blanks that line them up on
// screen. The list follows the tape window: when lines go on the tape, when
// a line is taken back and when the tape turns to another, the screen
// reader is told which items came and went.
#pragma once

#include <QAccessibleWidget>
#include <vector>

#include "qtbind/list_item_accessible.h"
#include "qtbind/read_only_text.h"

namespace qtbind {

class GridView;

class TapeAccessible : public QAccessibleWidget {
  public:
    explicit TapeAccessible(GridView* view);
    ~TapeAccessible() override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

    // The model's grid changed: the items are brought in line with it.
    void Update();

    // Of the line at `index` (0 for the tape's first line): its text, and
    // where it stands on the screen (nothing while it is scrolled away).
    QString LineText(int index) const;
    QRect LineRect(int index) const;

  private:
    const GridView* View() const;
    // The tape on show: the grid's first visible column.
    int Column() const;
    void CatchUp() const;
    // The interfaces of the lines from `from` on go, each with word of it.
    void DropLines(int from);

    // The interfaces made so far, by line; 0 for none.
    mutable std::vector<QAccessible::Id> lines_;
    // What a screen reader was last told of each line made.
    mutable std::vector<QString> told_;
    int column_ = 0;
    int count_ = 0;
};

// One line of the tape: a list item whose name is the line.
class TapeLineAccessible : public ListItemAccessible, public ReadOnlyText {
  public:
    TapeLineAccessible(const TapeAccessible* tape, int index) : tape_(tape), index_(index) {}

    bool isValid() const override { return tape_ != nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    QString CurrentText() const override;

  private:
    const TapeAccessible* tape_;
    int index_;
};

}  // namespace qtbind
