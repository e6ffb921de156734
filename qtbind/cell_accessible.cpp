#include "qtbind/cell_accessible.h"

#include <QWidget>
#include <QWindow>

#include "forms/form.h"
#include "qtbind/cell_access.h"

namespace qtbind {

namespace {

struct ActionName {
    CellAction action;
    const char* name;
    const char* description;
};

constexpr ActionName kActions[] = {
    {CellAction::AddReadout, "Add the readout", "Adds the value in the readout to this cell"},
    {CellAction::SubtractReadout, "Subtract the readout",
     "Subtracts the value in the readout from this cell"},
    {CellAction::Clear, "Clear", "Sets this cell to zero"},
    {CellAction::ShowTape, "Show tape", "Shows the tape of this cell"},
};

}  // namespace

bool CellAccessible::isValid() const {
    return cell_.Loaded();
}

QWindow* CellAccessible::window() const {
    QWidget* area = access_.Area();
    return area && area->window() ? area->window()->windowHandle() : nullptr;
}

QAccessibleInterface* CellAccessible::parent() const {
    return access_.Area() ? QAccessible::queryAccessibleInterface(access_.Area()) : nullptr;
}

QString CellAccessible::text(QAccessible::Text t) const {
    return t == QAccessible::Name ? QString::fromStdString(cell_.Caption()) : QString();
}

QRect CellAccessible::rect() const {
    return access_.ScreenRect(cell_);
}

QAccessible::State CellAccessible::state() const {
    QAccessible::State state;
    state.readOnly = true;
    if (!cell_.Visible()) state.invisible = true;
    // The active cell is the one whose tape shows.
    if (access_.IsActive(cell_)) state.active = true;
    return state;
}

void* CellAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::ActionInterface) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    return nullptr;
}

QString CellAccessible::CurrentText() const {
    forms::Control* value = cell_.Find("Label1");
    return value ? QString::fromStdString(value->Caption()) : QString();
}

QStringList CellAccessible::actionNames() const {
    QStringList names;
    for (const ActionName& a : kActions) names << QString::fromLatin1(a.name);
    return names;
}

QString CellAccessible::localizedActionDescription(const QString& name) const {
    for (const ActionName& a : kActions) {
        if (name == QLatin1String(a.name)) return QString::fromLatin1(a.description);
    }
    return {};
}

void CellAccessible::doAction(const QString& name) {
    for (const ActionName& a : kActions) {
        if (name == QLatin1String(a.name)) {
            access_.Run(cell_, a.action);
            return;
        }
    }
}

CellsAccessible::CellsAccessible(QWidget* area) : QAccessibleWidget(area, QAccessible::List) {
    if (CellAccess* access = Access()) access->SetListed();
}

CellAccess* CellsAccessible::Access() const {
    return CellAccess::ForArea(object());
}

QString CellsAccessible::text(QAccessible::Text t) const {
    if (t == QAccessible::Name) return QStringLiteral("Memory cells");
    return QAccessibleWidget::text(t);
}

int CellsAccessible::childCount() const {
    CellAccess* access = Access();
    return access ? static_cast<int>(access->Cells().size()) : 0;
}

QAccessibleInterface* CellsAccessible::child(int index) const {
    CellAccess* access = Access();
    if (!access || index < 0) return nullptr;
    const auto& cells = access->Cells();
    if (static_cast<std::size_t>(index) >= cells.size()) return nullptr;
    return access->InterfaceFor(*cells[index]);
}

int CellsAccessible::indexOfChild(const QAccessibleInterface* child) const {
    CellAccess* access = Access();
    const auto* cell = dynamic_cast<const CellAccessible*>(child);
    return access && cell ? access->IndexOf(cell->Cell()) : -1;
}

QAccessibleInterface* CellsAccessible::childAt(int x, int y) const {
    CellAccess* access = Access();
    if (!access) return nullptr;
    // Where cells overlap, the later one in the list is taken to lie in
    // front, as a cell lies over those made before it.
    const auto& cells = access->Cells();
    for (auto it = cells.rbegin(); it != cells.rend(); ++it) {
        if (access->ScreenRect(**it).contains(x, y)) return access->InterfaceFor(**it);
    }
    return nullptr;
}

}  // namespace qtbind
