// The program's item on the session bus (org.kde.StatusNotifierItem), which a panel shows, with its menu. It is
// exported on each new connection and registered with each watcher that appears. Main thread.
//
// Source: the "StatusNotifierItem" specification of freedesktop.org.
#pragma once

#include "foundation/WeakAnchor.h"
#include "hosts/linux/tray/BusMenu.h"
#include "hosts/linux/tray/NotifierWatcher.h"
#include "hosts/linux/tray/SessionBus.h"
#include "platform/Image.h"

#include <functional>
#include <memory>
#include <string>

namespace haloric {

class NotifierItem {
public:
    // Names of icons are looked up in the theme by the panel; pictures are drawn for it otherwise.
    struct Parts {
        LinuxRunLoop& runLoop;
        SessionBus& bus;
        NotifierWatcher& watcher;
        std::string iconName; // of an installed symbolic icon for the image; empty: none is installed
    };

    // Called with the pointer's place in pixels of the root window when a panel that shows no menus asks for it.
    using Activation = std::function<void(int x, int y)>;

    // The parts outlive it.
    NotifierItem(Parts parts, Activation onActivate);
    ~NotifierItem();
    NotifierItem(const NotifierItem&) = delete;
    NotifierItem& operator=(const NotifierItem&) = delete;

    // An item with an empty image is passive, which panels hide.
    void setImage(const Image& image);
    void setToolTip(const std::string& text);

    // Both outlive it.
    void setMenu(const MenuModel& menu, MenuDelegate& delegate);
    void menuItemsChanged();

private:
    static const sd_bus_vtable* table();
    static int text(sd_bus*, const char*, const char*, const char*, sd_bus_message*, void*, sd_bus_error*);
    static int pictures(sd_bus*, const char*, const char*, const char*, sd_bus_message*, void*, sd_bus_error*);
    static int toolTip(sd_bus*, const char*, const char*, const char*, sd_bus_message*, void*, sd_bus_error*);
    static int activate(sd_bus_message*, void*, sd_bus_error*);

    void appear();
    void disappear();
    void announce(const char* signal);
    bool isShown() const { return !std::holds_alternative<std::monostate>(m_image); }

    Parts m_parts;
    Activation m_onActivate;
    std::string m_name; // on the bus
    Image m_image;
    std::string m_toolTip;
    std::unique_ptr<BusMenu> m_menu;
    BusSlot m_object;
    Subscription m_whenOpened;
    Subscription m_whenLost;
    Subscription m_whenWatcherAppears;
    WeakAnchor<NotifierItem> m_anchor{*this};
};

} // namespace haloric
