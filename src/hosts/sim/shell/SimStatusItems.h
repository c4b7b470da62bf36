// The menu bar of the simulated desktop. Items, and choices in their menus, are noted in the journal.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/StatusItems.h"

#include <string>
#include <string_view>

namespace haloric {

class SimStatusItems final : public StatusItems {
public:
    explicit SimStatusItems(SimDesktop& desktop) : m_desktop(desktop) {}

    std::unique_ptr<StatusItem> make(double length) override;

    bool hasItem() const { return m_item != nullptr; }

    // The tooltip of the only item; empty without one.
    std::string toolTip() const;

    // The menu of the only item, updated as by opening it; null without an item.
    const MenuModel* openMenu() const;

    // Opens the menu and chooses the item of that title, also in a submenu. False when no item has the title, or it
    // cannot be chosen.
    bool choose(std::string_view title);

private:
    class Item;

    SimDesktop& m_desktop;
    Item* m_item = nullptr;
};

} // namespace haloric
