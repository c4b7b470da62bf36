// The menu and the tooltip of an icon whose tray does not show them itself. Main thread.
#pragma once

#include "drawing/PixelRect.h"
#include "platform/MenuDelegate.h"
#include "platform/MenuModel.h"

#include <memory>
#include <string>

namespace haloric {

class TrayMenu {
public:
    virtual ~TrayMenu() = default;

    // Both outlive it. The model's items keep their number, order and nesting.
    virtual void setMenu(const MenuModel& menu, MenuDelegate& delegate) = 0;
    virtual void menuItemsChanged() = 0;

    // Opens the menu beside a place in pixels of the root window. Does nothing without a menu.
    virtual void open(const PixelRect& beside) = 0;

    virtual void showToolTip(const std::string& text, const PixelRect& beside) = 0;
    virtual void hideToolTip() = 0;
};

class TrayMenus {
public:
    virtual ~TrayMenus() = default;
    virtual std::unique_ptr<TrayMenu> make() = 0; // never null
};

} // namespace haloric
