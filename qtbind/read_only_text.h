// The text interface of something a screen reader can read but not edit (a
// label, a memory cell's value, a line of the tape): the whole text, no
// caret, no selection, nothing to scroll to. Where the text stands on
// screen is not told: a value may have no widget at all.
#pragma once

#include <QAccessibleInterface>
#include <QString>

namespace qtbind {

class ReadOnlyText : public QAccessibleTextInterface {
  public:
    // What the text is now.
    virtual QString CurrentText() const = 0;

    void selection(int, int* startOffset, int* endOffset) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override { return static_cast<int>(CurrentText().size()); }
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int offset, int* startOffset, int* endOffset) const override;
};

}  // namespace qtbind
