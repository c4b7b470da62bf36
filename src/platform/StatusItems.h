// Items in the system's menu bar (on other desktops: the tray). Main thread.
#pragma once

#include "platform/Image.h"
#include "platform/MenuDelegate.h"
#include "platform/MenuModel.h"

#include <memory>
#include <string>

namespace haloric {

class StatusItem {
public:
    virtual ~StatusItem() = default;

    // Without a button, image and tooltip cannot be set.
    virtual bool hasButton() const = 0;
    virtual void setImage(const Image& image) = 0;
    virtual void setToolTip(const std::string& text) = 0;

    // Both outlive the item. The model is read now, after `menuItemsChanged`, and whenever the menu opens (after
    // asking the delegate). Its items keep their number, order and nesting; only what they show changes.
    virtual void setMenu(const MenuModel& menu, MenuDelegate& delegate) = 0;
    virtual void menuItemsChanged() = 0;
};

class StatusItems {
public:
    // As wide as the menu bar is high.
    static constexpr double kSquareLength = -2.0;

    virtual ~StatusItems() = default;

    // Never null. The item is in the menu bar until it is destroyed; where there is no menu bar (yet), it appears as
    // soon as there is one.
    virtual std::unique_ptr<StatusItem> make(double length) = 0;
};

} // namespace haloric
