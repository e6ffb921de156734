// The menus of one form as Qt menus: the visible top items in the window's
// menu bar, each hidden top item as a popup menu kept for its owner to pop
// up. Captions keep their "&" access letters, "-" makes a separator, and a
// checked item shows its check mark. No item has a shortcut key.
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "forms/form.h"
#include "forms/menu_item.h"

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace qtbind {

class MenuBridge {
  public:
    // `triggered` runs when the user chooses an item.
    explicit MenuBridge(std::function<void(forms::MenuItem&)> triggered);
    MenuBridge(const MenuBridge&) = delete;
    MenuBridge& operator=(const MenuBridge&) = delete;
    ~MenuBridge();

    // Builds every menu of the form. `bar` may be null for a form without a
    // menu bar; its hidden popups are built all the same.
    void Build(const forms::Form& form, QMenuBar* bar, QWidget* owner);
    // Caption, check mark and visibility of one item, as the model has them.
    void Apply(const forms::MenuItem& item);
    bool Knows(const forms::MenuItem& item) const { return actions_.contains(&item); }
    // The popup menu built for a hidden top item, or nullptr.
    QMenu* Popup(const std::string& name) const;
    QAction* ActionFor(const forms::MenuItem& item) const;
    // The model's items are going away: the actions forget them.
    void Detach();

  private:
    QAction* AddItem(forms::MenuItem& item, QMenu* into, QWidget* owner);

    std::function<void(forms::MenuItem&)> triggered_;
    std::unordered_map<const forms::MenuItem*, QAction*> actions_;
    std::unordered_map<std::string, QMenu*> popups_;
    std::unordered_set<const forms::MenuItem*> popupItems_;
    bool detached_ = false;
};

}  // namespace qtbind
