#include "qtbind/cell_access.h"

#include <QWidget>
#include <algorithm>

#include "forms/runtime.h"
#include "memory/cells.h"
#include "qtbind/announce.h"
#include "qtbind/cell_accessible.h"

namespace qtbind {

namespace {

std::vector<CellAccess*>& Everyone() {
    static std::vector<CellAccess*> everyone;
    return everyone;
}

QString ValueOf(forms::Form& cell) {
    return QString::fromStdString(memory::ValueLabel(cell).Caption());
}

}  // namespace

CellAccess::CellAccess(forms::Runtime& runtime, const PixelScale& scale,
                       std::function<void()> afterEvent)
    : runtime_(runtime), scale_(scale), afterEvent_(std::move(afterEvent)) {
    Everyone().push_back(this);
}

CellAccess::~CellAccess() {
    std::erase(Everyone(), this);
    for (auto& [cell, made] : made_) QAccessible::deleteAccessibleInterface(made.id);
}

CellAccess* CellAccess::ForArea(const QObject* area) {
    if (!area) return nullptr;
    for (CellAccess* access : Everyone()) {
        if (access->area_ == area) return access;
    }
    return nullptr;
}

const std::vector<forms::Form*>& CellAccess::Cells() const {
    if (stale_) {
        cells_.clear();
        indexOf_.clear();
        for (forms::Form* form : runtime_.OpenForms()) {
            if (!memory::IsCell(*form)) continue;
            indexOf_[form] = static_cast<int>(cells_.size());
            cells_.push_back(form);
        }
        stale_ = false;
    }
    return cells_;
}

int CellAccess::IndexOf(const forms::Form& cell) const {
    Cells();
    auto found = indexOf_.find(&cell);
    return found == indexOf_.end() ? -1 : found->second;
}

QAccessibleInterface* CellAccess::InterfaceFor(forms::Form& cell) {
    auto found = made_.find(&cell);
    if (found == made_.end()) {
        const QAccessible::Id id =
            QAccessible::registerAccessibleInterface(new CellAccessible(*this, cell));
        found =
            made_.emplace(&cell, Made{id, QString::fromStdString(cell.Caption()), ValueOf(cell)})
                .first;
    }
    return QAccessible::accessibleInterface(found->second.id);
}

QRect CellAccess::ScreenRect(const forms::Form& cell) const {
    if (!area_ || !cell.Visible()) return {};
    const QRect rect = scale_.ToPixels(cell.Left(), cell.Top(), cell.Width(), cell.Height());
    return QRect(area_->mapToGlobal(rect.topLeft()), rect.size());
}

bool CellAccess::IsActive(const forms::Form& cell) const {
    return runtime_.ActiveForm() == &cell;
}

void CellAccess::Run(forms::Form& cell, CellAction action) {
    RunCellAction(cell, action, afterEvent_);
}

void CellAccess::CellLoaded(forms::Form& cell) {
    stale_ = true;
    if (!area_ || !listed_) return;
    QAccessibleEvent came(InterfaceFor(cell), QAccessible::ObjectCreated);
    Announce(came);
}

void CellAccess::CellUnloaded(forms::Form& cell) {
    stale_ = true;
    auto found = made_.find(&cell);
    if (found == made_.end()) return;
    const QAccessible::Id id = found->second.id;
    made_.erase(found);
    QAccessibleEvent gone(QAccessible::accessibleInterface(id), QAccessible::ObjectDestroyed);
    Announce(gone);
    QAccessible::deleteAccessibleInterface(id);
}

void CellAccess::CellChanged(forms::Form& cell) {
    auto found = made_.find(&cell);
    if (found == made_.end()) return;
    const QString name = QString::fromStdString(cell.Caption());
    if (name == found->second.name) return;
    found->second.name = name;
    QAccessibleEvent renamed(QAccessible::accessibleInterface(found->second.id),
                             QAccessible::NameChanged);
    Announce(renamed);
}

void CellAccess::ControlChanged(forms::Control& control) {
    forms::Form& cell = control.Parent();
    auto found = made_.find(&cell);
    if (found == made_.end() || &control != &memory::ValueLabel(cell)) return;
    const QString value = ValueOf(cell);
    if (value == found->second.value) return;
    const QString before = found->second.value;
    found->second.value = value;
    QAccessibleTextUpdateEvent event(QAccessible::accessibleInterface(found->second.id), 0, before,
                                     value);
    Announce(event);
}

}  // namespace qtbind
