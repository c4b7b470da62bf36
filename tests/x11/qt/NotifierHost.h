// A host of status notifier items on a private session bus. It registers items and reads their menus, as the panels of
// several desktops do. It handles messages only inside its calls.
#pragma once

#include "testing/x11/ChildProcess.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace haloric {

class NotifierHost {
public:
    // An item of the menu. A list has the items of a submenu after the item that opens it.
    struct Item {
        int id = 0;
        std::string label;
        bool isEnabled = true;
        bool isVisible = true;
        bool hasToggle = false;
        bool isOn = false;
        std::string shortcut; // such as "Control+comma"
        bool hasIcon = false;
    };

    // Starts the bus; with `present` also the host.
    enum class Presence { later, present };
    NotifierHost(const Environment& environment, Presence presence);
    ~NotifierHost();
    NotifierHost(const NotifierHost&) = delete;
    NotifierHost& operator=(const NotifierHost&) = delete;

    std::string address() const { return m_address; } // of the bus

    void appear(); // the host
    void disappear();

    // Waits until the predicate holds, and replies to calls meanwhile. False after a timeout.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& predicate);

    // Waits until a program has registered an item.
    [[nodiscard]] bool waitForItem();

    std::string toolTip();
    bool hasPicture();
    void activate(); // as by a left click

    std::vector<Item> menu();
    std::optional<Item> item(const std::string& label);

    // Waits until the item with that label fulfils `predicate`.
    [[nodiscard]] bool waitForItem(const std::string& label, const std::function<bool(const Item&)>& predicate);

    void click(const std::string& label);

private:
    struct Bus;

    std::unique_ptr<ChildProcess> m_daemon;
    std::string m_address;
    std::unique_ptr<Bus> m_bus;
};

} // namespace haloric
