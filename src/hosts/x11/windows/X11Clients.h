// Keeps the table of managed windows fresh: listens to the root window and to each client, notes what may have
// changed, and makes one pass before the main loop goes to sleep. The pass reads what is needed in a few batches;
// a frame that merely moves needs none, its event tells everything. Main thread, except for the table.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/windows/X11ClientReader.h"
#include "hosts/x11/windows/X11ClientTable.h"

#include <set>
#include <vector>

namespace haloric {

class X11Clients {
public:
    // Reads the desktop as it is. The connection and the loop outlive it.
    X11Clients(X11Connection& connection, LinuxRunLoop& runLoop);
    X11Clients(const X11Clients&) = delete;
    X11Clients& operator=(const X11Clients&) = delete;

    const X11ClientTable& table() const { return m_table; }

    // What happened to each window, after the table has been brought up to date.
    Subscription onNotice(Publisher<X11ClientNotice>::Handler handler)
    {
        return m_notices.subscribe(std::move(handler));
    }

    // After every pass, and after its notices.
    Subscription onPass(Task handler) { return m_passes.subscribe(std::move(handler)); }

private:
    void listen();
    void propertyChanged(const xcb_property_notify_event_t& event);
    void configured(const xcb_generic_event_t& event);
    void changed(xcb_window_t clientOrFrame);
    void destroyed(xcb_window_t window);
    bool pass();
    void readRoot();
    void adopt(const std::vector<xcb_window_t>& listed, xcb_window_t activeWindow);
    void readClients();
    void measureClients();
    bool describesClient(xcb_atom_t property) const;

    X11Connection& m_connection;
    const X11Atoms& m_atoms;
    X11ClientReader m_reader;
    X11ClientTable m_table;

    bool m_rootChanged = true;
    bool m_framesMoved = false;
    std::set<xcb_window_t> m_toRead;
    std::set<xcb_window_t> m_toMeasure;

    Publisher<X11ClientNotice> m_notices;
    Publisher<> m_passes;
    std::vector<Subscription> m_subscriptions;
};

} // namespace haloric
