// The menu bar of the simulated desktop. Items and what is chosen in their menus go into the journal.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/StatusItems.h"

#include <string_view>

namespace haloric {

class SimStatusItems final : public StatusItems {
public:
    explicit SimStatusItems(SimDesktop& desktop) : m_desktop(desktop) {}

    std::unique_ptr<StatusItem> make(double length) override;

    // The menu of the only item, as a user sees it who opens it now; null when there is none.
    const MenuModel* openMenu() const;

    // Opens the menu and chooses the item of that title, also in a submenu. False when there is no such item, or it
    // cannot be chosen.
    bool choose(std::string_view title);

private:
    class Item;

    SimDesktop& m_desktop;
    Item* m_item = nullptr;
};

} // namespace haloric
