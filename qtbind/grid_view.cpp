#include "qtbind/grid_view.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "qtbind/model_color.h"
#include "qtbind/tape_accessible.h"

namespace qtbind {

namespace {
constexpr int kCellPadding = 2;  // pixels between a cell's edge and its text
constexpr int kWheelStep = 120;  // one notch of a common mouse wheel

int TextFlags(int alignment) {
    switch (alignment) {
        case 1:
            return Qt::AlignRight | Qt::AlignVCenter;
        case 2:
            return Qt::AlignHCenter | Qt::AlignVCenter;
        default:
            return Qt::AlignLeft | Qt::AlignVCenter;
    }
}
}  // namespace

GridView::GridView(forms::Grid& grid, const PixelScale& scale, QWidget* parent)
    : QWidget(parent), grid_(&grid), scale_(scale) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

int GridView::LineCount(int column) const {
    if (!grid_) return 0;
    // Row 0 is above the first line of every tape.
    const int rows = grid_->Rows() - 1;
    return lineCount_ ? std::clamp(lineCount_(column), 0, rows) : rows;
}

void GridView::ModelChanged() {
    update();
    if (!listened_ || accessibleUpdatePending_) return;
    accessibleUpdatePending_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            accessibleUpdatePending_ = false;
            if (auto* tape =
                    dynamic_cast<TapeAccessible*>(QAccessible::queryAccessibleInterface(this))) {
                tape->Update();
            }
        },
        Qt::QueuedConnection);
}

int GridView::RowPixels() const {
    return std::max(1, scale_.ToPixelsY(grid_ ? grid_->RowHeight(0) : forms::Grid::kRowHeight));
}

int GridView::VisibleRows() const {
    return std::max(1, height() / RowPixels());
}

void GridView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!grid_) {
        painter.fillRect(rect(), Qt::white);
        return;
    }
    painter.fillRect(rect(), ModelColor(grid_->BackColor()));
    painter.setPen(ModelColor(grid_->ForeColor()));
    painter.setFont(font());
    const int rowHeight = RowPixels();
    int y = 0;
    for (int row = grid_->TopRow(); row < grid_->Rows() && y < height(); ++row) {
        int x = 0;
        for (int col = grid_->LeftCol(); col < grid_->Cols() && x < width(); ++col) {
            const int colWidth = scale_.ToPixelsX(grid_->ColWidth(col));
            if (colWidth <= 0) continue;
            const QRect cell(x + kCellPadding, y, colWidth - 2 * kCellPadding, rowHeight);
            painter.drawText(cell, TextFlags(grid_->ColAlignment(col)),
                             QString::fromStdString(grid_->Cell(row, col)));
            x += colWidth;
        }
        y += rowHeight;
    }
}

void GridView::ScrollTo(int topRow) {
    if (!grid_) return;
    const int last = std::max(0, grid_->Rows() - VisibleRows());
    topRow = std::clamp(topRow, 0, last);
    if (topRow != grid_->TopRow()) grid_->SetTopRow(topRow);
}

void GridView::wheelEvent(QWheelEvent* event) {
    if (!grid_) return;
    wheelRemainder_ += event->angleDelta().y();
    const int notches = wheelRemainder_ / kWheelStep;
    wheelRemainder_ -= notches * kWheelStep;
    if (notches != 0) ScrollTo(grid_->TopRow() - notches);
    event->accept();
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (!grid_) return;
    const int top = grid_->TopRow();
    switch (event->key()) {
        case Qt::Key_Up:
            ScrollTo(top - 1);
            break;
        case Qt::Key_Down:
            ScrollTo(top + 1);
            break;
        case Qt::Key_PageUp:
            ScrollTo(top - VisibleRows());
            break;
        case Qt::Key_PageDown:
            ScrollTo(top + VisibleRows());
            break;
        case Qt::Key_Home:
            ScrollTo(0);
            break;
        case Qt::Key_End:
            ScrollTo(grid_->Rows());
            break;
        default:
            QWidget::keyPressEvent(event);
            return;
    }
    event->accept();
}

}  // namespace qtbind
