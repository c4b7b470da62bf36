// The registry of status notifier items on the session bus (org.kde.StatusNotifierWatcher): whether a panel shows such
// items, and the registration of this program's. A watcher that never replies delays nothing. Main thread.
//
// Source: the "StatusNotifierItem" specification of freedesktop.org, sections "StatusNotifierWatcher" and
// "StatusNotifierHost".
#pragma once

#include "foundation/Publisher.h"
#include "hosts/linux/tray/BusTypes.h"
#include "hosts/linux/tray/SessionBus.h"

#include <string>

namespace haloric {

class NotifierWatcher {
public:
    // The bus outlives it.
    explicit NotifierWatcher(SessionBus& bus);
    NotifierWatcher(const NotifierWatcher&) = delete;
    NotifierWatcher& operator=(const NotifierWatcher&) = delete;

    // A host, which shows the items, is registered.
    bool hasHost() const { return m_hasHost; }

    // The watcher has not replied yet to the query for a host.
    bool isQueryPending() const { return static_cast<bool>(m_query); }

    // Called after each change of these two.
    Subscription onChange(Task handler) { return m_changed.subscribe(std::move(handler)); }

    // Called when the watcher has appeared on the bus; items register again.
    Subscription onAppear(Task handler) { return m_appeared.subscribe(std::move(handler)); }

    // Registers the item with that well-known name on the bus. Does nothing without a connection or a watcher.
    void registerItem(const std::string& name);

private:
    static int ownerChanged(sd_bus_message* message, void* self, sd_bus_error* error);
    static int hostsChanged(sd_bus_message* message, void* self, sd_bus_error* error);
    static int replied(sd_bus_message* message, void* self, sd_bus_error* error);
    void listen();
    void forget();
    void query();
    void conclude(bool hasHost);

    SessionBus& m_bus;
    BusSlot m_owner;
    BusSlot m_signals;
    BusSlot m_query; // pending
    bool m_hasHost = false;
    Publisher<> m_changed;
    Publisher<> m_appeared;
    Subscription m_whenOpened;
    Subscription m_whenLost;
};

} // namespace haloric
