// The small frame that a child window (a memory cell) draws around itself
// inside its parent's area, where the desktop draws none: a raised border
// as deep as the model's frame, and under its top edge a narrow title bar
// with the caption and a close box, and no other button. All of it comes
// from the model's insets for the form, so that the inner area lies exactly
// where the model puts it.
#pragma once

#include <QFont>
#include <QRect>
#include <QSize>
#include <QString>

#include "forms/form.h"
#include "qtbind/pixel_scale.h"

class QPainter;

namespace qtbind {

class ChildFrame {
  public:
    enum class Part { None, TitleBar, CloseBox };

    ChildFrame(const PixelScale& scale, const forms::FrameInsets& insets);

    // The depth of the border, where the mouse takes hold of an edge.
    int Border() const { return border_; }
    QRect TitleBar(const QSize& size) const;
    QRect CloseBox(const QSize& size) const;
    // What lies under a point of the frame (edges aside).
    Part PartAt(const QPoint& local, const QSize& size) const;

    // The active child shows its title bar in the active colours.
    void Paint(QPainter& painter, const QSize& size, const QString& caption, bool active) const;

  private:
    int border_;
    int top_;    // the depth of the border above the title bar
    int inner_;  // where the inner area begins, below the title bar
    QFont font_;
};

}  // namespace qtbind
