// Keeps the table of managed windows up to date: listens to the root window and to each client, notes what may have
// changed, and reads that in a few batches when it is updated. A frame that only moves needs no reading, because its
// event has the new place. Main thread.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/windows/X11ClientReader.h"
#include "hosts/x11/windows/X11ClientTable.h"
#include "hosts/x11/windows/X11WindowManager.h"

#include <set>
#include <vector>

namespace haloric {

class X11Clients {
public:
    // Reads the desktop as it is. Both outlive it.
    X11Clients(X11Connection& connection, X11WindowManager& windowManager);
    X11Clients(const X11Clients&) = delete;
    X11Clients& operator=(const X11Clients&) = delete;

    const X11ClientTable& table() const { return m_table; }

    // Reads what events have noted, and notifies. True when there was something.
    bool update();

    // Each change of a window, after the table has been brought up to date.
    Subscription onNotice(Publisher<X11ClientNotice>::Handler handler)
    {
        return m_notices.subscribe(std::move(handler));
    }

    // After every update that found something, and after its notices.
    Subscription onPass(Task handler) { return m_passes.subscribe(std::move(handler)); }

private:
    void listen();
    void windowManagerChanged();
    void propertyChanged(const xcb_property_notify_event_t& event);
    void configured(const xcb_generic_event_t& event);
    void changed(xcb_window_t clientOrFrame);
    void destroyed(xcb_window_t window);
    void readRoot();
    void adopt(const std::vector<xcb_window_t>& listed, xcb_window_t activeWindow);
    void readClients();
    void measureClients();
    bool describesClient(xcb_atom_t property) const;

    X11Connection& m_connection;
    const X11Atoms& m_atoms;
    const X11WindowManager& m_windowManager;
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
