#include "qtbind/tape_accessible.h"

#include <QWidget>
#include <QWindow>

#include "qtbind/announce.h"
#include "qtbind/grid_view.h"

namespace qtbind {

TapeAccessible::TapeAccessible(GridView* view) : QAccessibleWidget(view, QAccessible::List) {
    view->SetListened();
    column_ = Column();
    count_ = view->LineCount(column_);
}

TapeAccessible::~TapeAccessible() {
    for (QAccessible::Id id : lines_) {
        if (id) QAccessible::deleteAccessibleInterface(id);
    }
}

const GridView* TapeAccessible::View() const {
    return static_cast<const GridView*>(widget());
}

int TapeAccessible::Column() const {
    const forms::Grid* grid = View() ? View()->Grid() : nullptr;
    return grid ? grid->LeftCol() : 0;
}

void TapeAccessible::CatchUp() const {
    // The updates come once the model's statements are over; a list asked
    // before that (from inside the event) learns of the grid at once.
    const int column = Column();
    if (column == column_ && View() && View()->LineCount(column) == count_) return;
    const_cast<TapeAccessible*>(this)->Update();
}

int TapeAccessible::childCount() const {
    CatchUp();
    return count_;
}

QAccessibleInterface* TapeAccessible::child(int index) const {
    CatchUp();
    if (index < 0 || index >= count_) return nullptr;
    if (lines_.size() < static_cast<std::size_t>(count_)) {
        lines_.resize(count_, 0);
        told_.resize(count_);
    }
    QAccessible::Id& id = lines_[index];
    if (!id) {
        id = QAccessible::registerAccessibleInterface(new TapeLineAccessible(this, index));
        told_[index] = LineText(index);
    }
    return QAccessible::accessibleInterface(id);
}

int TapeAccessible::indexOfChild(const QAccessibleInterface* child) const {
    if (!child) return -1;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (lines_[i] && QAccessible::accessibleInterface(lines_[i]) == child) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

QAccessibleInterface* TapeAccessible::childAt(int x, int y) const {
    for (int i = 0; i < count_; ++i) {
        if (LineRect(i).contains(x, y)) return child(i);
    }
    return nullptr;
}

QString TapeAccessible::LineText(int index) const {
    const forms::Grid* grid = View() ? View()->Grid() : nullptr;
    if (!grid) return {};
    return QString::fromStdString(grid->Cell(index + 1, Column())).trimmed();
}

QRect TapeAccessible::LineRect(int index) const {
    const GridView* view = View();
    const forms::Grid* grid = view ? view->Grid() : nullptr;
    if (!grid || !view->isVisible()) return {};
    const int rowHeight = view->RowPixels();
    const QRect line(0, (index + 1 - grid->TopRow()) * rowHeight, view->width(), rowHeight);
    if (!view->rect().intersects(line)) return {};
    return QRect(view->mapToGlobal(line.topLeft()), line.size());
}

void TapeAccessible::DropLines(int from) {
    for (std::size_t i = from; i < lines_.size(); ++i) {
        if (!lines_[i]) continue;
        QAccessibleEvent gone(QAccessible::accessibleInterface(lines_[i]),
                              QAccessible::ObjectDestroyed);
        Announce(gone);
        QAccessible::deleteAccessibleInterface(lines_[i]);
    }
    if (lines_.size() > static_cast<std::size_t>(from)) {
        lines_.resize(from);
        told_.resize(from);
    }
}

void TapeAccessible::Update() {
    const int column = Column();
    const int count = View() ? View()->LineCount(column) : 0;
    if (column != column_) {
        // Another tape: none of the lines shown so far is there any more.
        DropLines(0);
        column_ = column;
        count_ = 0;
    } else if (count < count_) {
        DropLines(count);
    }
    // Lines written over in place (a line taken back and written anew).
    const int kept = std::min(count, count_);
    for (int i = 0; i < kept && static_cast<std::size_t>(i) < lines_.size(); ++i) {
        if (!lines_[i]) continue;
        const QString now = LineText(i);
        if (now == told_[i]) continue;
        told_[i] = now;
        QAccessibleEvent renamed(QAccessible::accessibleInterface(lines_[i]),
                                 QAccessible::NameChanged);
        Announce(renamed);
    }
    const int before = count_;
    count_ = count;
    for (int i = before; i < count; ++i) {
        QAccessibleEvent came(child(i), QAccessible::ObjectCreated);
        Announce(came);
    }
}

QWindow* TapeLineAccessible::window() const {
    return tape_ ? tape_->window() : nullptr;
}

QAccessibleInterface* TapeLineAccessible::parent() const {
    return const_cast<TapeAccessible*>(tape_);
}

QString TapeLineAccessible::text(QAccessible::Text t) const {
    return t == QAccessible::Name ? CurrentText() : QString();
}

QRect TapeLineAccessible::rect() const {
    return tape_ ? tape_->LineRect(index_) : QRect();
}

QAccessible::State TapeLineAccessible::state() const {
    QAccessible::State state;
    state.readOnly = true;
    // A line scrolled out of the grid is there, but not on screen.
    if (rect().isEmpty()) state.offscreen = true;
    return state;
}

void* TapeLineAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return nullptr;
}

QString TapeLineAccessible::CurrentText() const {
    return tape_ ? tape_->LineText(index_) : QString();
}

}  // namespace qtbind
