#include "qtbind/label_accessible.h"

#include <QVariant>

namespace qtbind {

namespace {
constexpr char kModelLabel[] = "lathmarkModelLabel";
}

LabelAccessible::LabelAccessible(QLabel* label)
    : QAccessibleWidget(label, QAccessible::StaticText) {}

void LabelAccessible::Mark(QLabel* label) {
    label->setProperty(kModelLabel, true);
}

bool LabelAccessible::Marked(const QObject* object) {
    return object && object->property(kModelLabel).toBool();
}

void* LabelAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString LabelAccessible::CurrentText() const {
    const auto* label = qobject_cast<const QLabel*>(object());
    return label ? label->text() : QString();
}

}  // namespace qtbind
