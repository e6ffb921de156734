// The memory cells for screen readers. A cell has widgets only while some
// part of it shows (CellStage), so screen readers do not go by them: the
// memory window's inner area lists every open cell, in the order of the
// list of open forms, each as an object of its own made from the model
// (CellAccessible). This keeps those objects: made when first asked for,
// under the same id for as long as the cell is open, gone when it closes;
// it tells screen readers when a cell comes, goes, is renamed or gets a
// new value, and runs the cells' actions.
#pragma once

#include <QAccessible>
#include <QRect>
#include <QString>
#include <functional>
#include <unordered_map>
#include <vector>

#include "qtbind/cell_actions.h"
#include "qtbind/pixel_scale.h"

class QWidget;

namespace forms {
class Control;
class Form;
class Runtime;
}  // namespace forms

namespace qtbind {

class CellAccess {
  public:
    // `afterEvent` runs after every step of an action, as after a real event.
    CellAccess(forms::Runtime& runtime, const PixelScale& scale, std::function<void()> afterEvent);
    ~CellAccess();
    CellAccess(const CellAccess&) = delete;
    CellAccess& operator=(const CellAccess&) = delete;

    // The one that lists its cells in `area`, if any.
    static CellAccess* ForArea(const QObject* area);
    // A screen reader has looked at the list of cells: from now on it hears
    // of every cell that comes.
    void SetListed() { listed_ = true; }
    // The memory window's inner area, where the cells lie.
    void SetArea(QWidget* area) { area_ = area; }
    QWidget* Area() const { return area_; }

    // The open cells, in the order of the list of open forms.
    const std::vector<forms::Form*>& Cells() const;
    int IndexOf(const forms::Form& cell) const;
    // The cell's object, made on first use.
    QAccessibleInterface* InterfaceFor(forms::Form& cell);
    // Where the cell stands on the screen, shown or covered.
    QRect ScreenRect(const forms::Form& cell) const;
    bool IsActive(const forms::Form& cell) const;
    void Run(forms::Form& cell, CellAction action);

    // What the binding hears of the model.
    void CellLoaded(forms::Form& cell);
    void CellUnloaded(forms::Form& cell);
    void CellChanged(forms::Form& cell);
    void ControlChanged(forms::Control& control);

  private:
    struct Made {
        QAccessible::Id id;
        QString name;   // as last told
        QString value;  // as last told
    };

    forms::Runtime& runtime_;
    PixelScale scale_;
    std::function<void()> afterEvent_;
    QWidget* area_ = nullptr;
    bool listed_ = false;
    std::unordered_map<const forms::Form*, Made> made_;
    // The cells in order, worked out again after a cell came or went.
    mutable std::vector<forms::Form*> cells_;
    mutable std::unordered_map<const forms::Form*, int> indexOf_;
    mutable bool stale_ = true;
};

}  // namespace qtbind
