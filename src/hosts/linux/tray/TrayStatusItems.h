// The program's items in the desktop's tray: on the session bus if a panel shows such items, otherwise in a tray of the
// XEmbed protocol. Trays and programs start in any order, and trays come and go. Main thread.
#pragma once

#include "hosts/linux/tray/EmbeddedIcon.h"
#include "hosts/linux/tray/NotifierItem.h"
#include "hosts/linux/tray/NotifierWatcher.h"
#include "hosts/linux/tray/SessionBus.h"
#include "hosts/linux/tray/TrayMenu.h"
#include "platform/StatusItems.h"

#include <memory>
#include <string>

namespace haloric {

class Processes;

// An item without an image is hidden.
class TrayStatusItem final : public StatusItem {
public:
    // `watcher` and the parts for the bus outlive it.
    TrayStatusItem(const NotifierItem::Parts& parts, std::unique_ptr<EmbeddedIcon> icon,
                   std::unique_ptr<TrayMenu> menu);

    // StatusItem
    bool hasButton() const override { return true; }
    void setImage(const Image& image) override;
    void setToolTip(const std::string& text) override;
    void setMenu(const MenuModel& menu, MenuDelegate& delegate) override;
    void menuItemsChanged() override;

private:
    void chooseTray();

    LinuxRunLoop& m_runLoop;
    NotifierWatcher& m_watcher;
    NotifierItem m_item;
    std::unique_ptr<EmbeddedIcon> m_icon;
    std::unique_ptr<TrayMenu> m_menu;
    std::string m_toolTip;
    bool m_hasImage = false;
    Subscription m_whenHostsChange;
    Subscription m_patience; // with a watcher that does not reply
    Subscription m_press;
    Subscription m_rest;
    Subscription m_leave;
};

// The items name the program's symbolic icon, which panels colour to suit themselves, if it is installed.
class TrayStatusItems final : public StatusItems {
public:
    // All outlive it.
    TrayStatusItems(LinuxRunLoop& runLoop, EmbeddedIcons& icons, TrayMenus& menus, const Processes& processes);

    // Ignores `length`: trays give each item a place as long as the tray is high.
    std::unique_ptr<StatusItem> make(double length) override;

private:
    LinuxRunLoop& m_runLoop;
    EmbeddedIcons& m_icons;
    TrayMenus& m_menus;
    std::string m_iconName;
    SessionBus m_bus;
    NotifierWatcher m_watcher;
};

} // namespace haloric
