// A menu as data. The menu's owner keeps and changes it; a host renders it and calls the items' actions. Main thread.
#pragma once

#include "platform/Image.h"

#include <any>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace haloric {

struct MenuItem;

// The object that performs an item's action. An item for the application itself has no target; macOS sends its action
// along the responder chain.
enum class MenuTarget { none, controller, updaterGate };

struct MenuAction {
    std::string selector; // the action's name on macOS
    MenuTarget target = MenuTarget::none;
    std::function<void(const MenuItem&)> perform; // called with the item that sends it
};

struct MenuItem {
    std::string title; // UTF-8
    bool isSeparator = false;
    std::optional<MenuAction> action;
    std::string keyEquivalent; // with Command; empty for none
    bool isCheckable = false;  // has a place for a check mark, also while `isOn` is false
    bool isOn = false;         // shows the check mark
    bool isEnabled = true;     // final: hosts do not derive it from the target
    bool isHidden = false;
    std::string toolTip; // empty for none
    Image image;
    std::any representedObject;
    std::vector<MenuItem> submenu; // empty for none

    static MenuItem separator()
    {
        MenuItem item;
        item.isSeparator = true;
        return item;
    }
};

struct MenuModel {
    std::vector<MenuItem> items;
};

// The item at a position: its index at each level, the menu's own level first. Null for a position without an item.
inline const MenuItem* itemAt(const MenuModel& menu, const std::vector<std::size_t>& position)
{
    const std::vector<MenuItem>* items = &menu.items;
    const MenuItem* found = nullptr;
    for (const std::size_t index : position) {
        if (index >= items->size())
            return nullptr;
        found = &(*items)[index];
        items = &found->submenu;
    }
    return found;
}

// What choosing the item does; a disabled item and one without an action do nothing. The action may destroy the menu.
inline void performAction(const MenuItem& item)
{
    if (!item.isEnabled || !item.action || !item.action->perform)
        return;
    const auto perform = item.action->perform;
    perform(item);
}

} // namespace haloric
