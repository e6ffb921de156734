#include "qtbind/program_icon.h"

#include <QString>

namespace qtbind {

namespace {
// The sizes that packaging/ renders from the icon's drawings, and where the
// resource keeps them: the same layout as the installed icon theme.
constexpr int kSizes[] = {16, 24, 32, 48, 64, 128, 256};
}  // namespace

QIcon ProgramIcon() {
    static const QIcon icon = [] {
        QIcon made;
        for (int size : kSizes) {
            made.addFile(
                QStringLiteral(":/icons/hicolor/%1x%1/apps/io.github.lathmark.Calculator.png")
                    .arg(size),
                QSize(size, size));
        }
        return made;
    }();
    return icon;
}

}  // namespace qtbind
