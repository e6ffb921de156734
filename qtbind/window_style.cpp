#include "qtbind/window_style.h"

namespace qtbind {

namespace {
bool IsMemoryCell(const forms::Form& form) {
    // A memory cell is known by its tag; the cells live inside the one
    // window with the normal sizable frame.
    return form.Tag().find("memory") != std::string::npos;
}
}  // namespace

Hosting HostingOf(const forms::Form& form) {
    if (IsMemoryCell(form)) return Hosting::MdiChild;
    switch (form.Border()) {
        case forms::BorderStyle::SizableNoTitle:
            return Hosting::Frameless;
        case forms::BorderStyle::Sizable:
            return Hosting::MdiParent;
        default:
            return Hosting::TopLevel;
    }
}

Qt::WindowFlags FlagsFor(const forms::Form& form) {
    // A memory cell is a plain widget inside its parent's area, which draws
    // its small frame itself.
    if (HostingOf(form) == Hosting::MdiChild) return Qt::Widget;
    Qt::WindowFlags flags = Qt::WindowStaysOnTopHint;
    switch (form.Border()) {
        case forms::BorderStyle::FixedSingle:
            flags |= Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                     Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                     Qt::WindowCloseButtonHint;
            break;
        case forms::BorderStyle::SizableNoTitle:
            flags |= Qt::Tool | Qt::FramelessWindowHint;
            break;
        case forms::BorderStyle::SizableToolWindow:
            flags |= Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                     Qt::WindowCloseButtonHint;
            break;
        case forms::BorderStyle::Sizable:
            flags |= Qt::Window;
            break;
        case forms::BorderStyle::FixedDialog:
            flags |= Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
            // The prompt for a cell's name has no close box; the About box
            // has one.
            if (form.HasCloseBox()) flags |= Qt::WindowCloseButtonHint;
            break;
    }
    return flags;
}

bool HasFixedSize(const forms::Form& form) {
    return form.Border() == forms::BorderStyle::FixedSingle ||
           form.Border() == forms::BorderStyle::FixedDialog;
}

bool ShowsWithoutActivating(const forms::Form& form) {
    // The memory window comes up with a new cell while the user goes on
    // typing into the calculator.
    return form.Border() == forms::BorderStyle::SizableNoTitle ||
           form.Border() == forms::BorderStyle::SizableToolWindow ||
           form.Border() == forms::BorderStyle::Sizable;
}

}  // namespace qtbind
