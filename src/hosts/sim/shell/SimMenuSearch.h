// Finds items of a menu by their titles.
#pragma once

#include "platform/MenuModel.h"

#include <string_view>
#include <vector>

namespace haloric {

struct SimMenuSearch {
    // The first item of that title, also in submenus, or null.
    static const MenuItem* find(const std::vector<MenuItem>& items, std::string_view title)
    {
        for (const MenuItem& item : items) {
            if (!item.isSeparator && item.title == title)
                return &item;
            if (const MenuItem* inside = find(item.submenu, title))
                return inside;
        }
        return nullptr;
    }

    // Whether the user can choose it.
    static bool canBeChosen(const MenuItem& item)
    {
        return item.isEnabled && !item.isHidden && item.action.has_value();
    }
};

} // namespace haloric
