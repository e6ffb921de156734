#include "qtbind/menu_bridge.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace qtbind {

MenuBridge::MenuBridge(std::function<void(forms::MenuItem&)> triggered)
    : triggered_(std::move(triggered)) {}

MenuBridge::~MenuBridge() = default;

void MenuBridge::Build(const forms::Form& form, QMenuBar* bar, QWidget* owner) {
    for (const auto& top : form.Menus()) {
        forms::MenuItem& item = *top;
        auto* menu = new QMenu(QString::fromStdString(item.Caption()), bar ? bar : owner);
        for (const auto& child : item.Items()) AddItem(*child, menu, owner);
        QAction* action = menu->menuAction();
        actions_[&item] = action;
        if (!item.Visible()) {
            // A hidden top item is a popup menu, shown only when the program
            // asks for it.
            popups_[item.Name()] = menu;
            popupItems_.insert(&item);
        } else if (bar) {
            bar->addMenu(menu);
        }
        Apply(item);
    }
}

QAction* MenuBridge::AddItem(forms::MenuItem& item, QMenu* into, QWidget* owner) {
    QAction* action = nullptr;
    if (!item.Items().empty()) {
        auto* submenu = new QMenu(QString::fromStdString(item.Caption()), into);
        for (const auto& child : item.Items()) AddItem(*child, submenu, owner);
        action = into->addMenu(submenu);
    } else {
        action = into->addAction(QString());
        forms::MenuItem* model = &item;
        QObject::connect(action, &QAction::triggered, action, [this, model] {
            if (detached_) return;
            if (triggered_) triggered_(*model);
            // Qt turns a check mark over on its own; the model decides.
            if (!detached_) Apply(*model);
        });
    }
    actions_[&item] = action;
    Apply(item);
    return action;
}

void MenuBridge::Apply(const forms::MenuItem& item) {
    auto found = actions_.find(&item);
    if (found == actions_.end() || detached_) return;
    QAction* action = found->second;
    const bool separator = item.IsSeparator();
    if (action->isSeparator() != separator) action->setSeparator(separator);
    if (!separator) {
        const QString caption = QString::fromStdString(item.Caption());
        if (action->text() != caption) action->setText(caption);
        // Only a checked item is checkable, so that an unchecked one shows no
        // empty box beside it.
        if (action->isCheckable() != item.Checked()) action->setCheckable(item.Checked());
        if (action->isChecked() != item.Checked()) action->setChecked(item.Checked());
    }
    // A popup's own entry stays out of every menu bar.
    if (!popupItems_.contains(&item) && action->isVisible() != item.Visible())
        action->setVisible(item.Visible());
}

QMenu* MenuBridge::Popup(const std::string& name) const {
    auto found = popups_.find(name);
    return found == popups_.end() ? nullptr : found->second;
}

QAction* MenuBridge::ActionFor(const forms::MenuItem& item) const {
    auto found = actions_.find(&item);
    return found == actions_.end() ? nullptr : found->second;
}

void MenuBridge::Detach() {
    detached_ = true;
}

}  // namespace qtbind
