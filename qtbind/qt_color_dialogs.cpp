#include "qtbind/qt_color_dialogs.h"

#include <QColorDialog>

#include "qtbind/model_color.h"

namespace qtbind {

std::optional<std::uint32_t> QtColorDialogs::Show(std::uint32_t initial) {
    QColorDialog dialog(ModelColor(initial));
    dialog.setWindowTitle(QStringLiteral("Colors"));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    // The calculator stays on top meanwhile; the dialog must come in front.
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    dialog.setWindowModality(Qt::ApplicationModal);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return ModelColorOf(dialog.selectedColor());
}

}  // namespace qtbind
