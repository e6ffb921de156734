#include "qtbind/accessible_factory.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>

#include "qtbind/accessible_names.h"
#include "qtbind/cell_access.h"
#include "qtbind/cell_accessible.h"
#include "qtbind/form_window.h"
#include "qtbind/grid_view.h"
#include "qtbind/label_accessible.h"
#include "qtbind/tape_accessible.h"

namespace qtbind {

namespace {

QAccessibleInterface* Factory(const QString& /*className*/, QObject* object) {
    if (!object || !object->isWidgetType()) return nullptr;
    auto* widget = static_cast<QWidget*>(object);
    if (auto* window = dynamic_cast<FormWindow*>(widget)) {
        // A memory cell's widgets are not what screen readers go by.
        if (!window->Form() || window->GetHosting() == Hosting::MdiChild) return nullptr;
        return new QAccessibleWidget(window, AccessibleWindowRole(*window->Form()));
    }
    if (CellAccess::ForArea(widget)) return new CellsAccessible(widget);
    if (auto* grid = dynamic_cast<GridView*>(widget)) return new TapeAccessible(grid);
    if (auto* label = qobject_cast<QLabel*>(widget); label && LabelAccessible::Marked(label)) {
        return new LabelAccessible(label);
    }
    return nullptr;
}

}  // namespace

void InstallAccessibleFactory() {
    static const bool installed = [] {
        QAccessible::installFactory(Factory);
        return true;
    }();
    (void)installed;
}

}  // namespace qtbind
