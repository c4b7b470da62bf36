// Whether there is a tray to put an item into: a manager of the older kind, which owns the selection
// `_NET_SYSTEM_TRAY_Sn`, or a host of status notifier items on the session bus. Main thread.
//
// Qt decides for one of the two kinds when it is first asked for an item, and never again; so nobody asks it before one
// is there. At the start of a session programs come up in any order. And Qt asks the session bus and waits for the
// answer: as long as somebody there owes one, no tray counts as seen, or the whole program would wait.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Task.h"
#include "hosts/x11/server/X11Connection.h"

#include <memory>

namespace haloric {

class StatusNotifierWatcher;

class TrayWatcher {
public:
    // The connection outlives it.
    explicit TrayWatcher(X11Connection& connection);
    ~TrayWatcher();
    TrayWatcher(const TrayWatcher&) = delete;
    TrayWatcher& operator=(const TrayWatcher&) = delete;

    // Once true, it stays so: an item that is there finds the next tray by itself.
    bool wereSeen() const { return m_wereSeen; }

    // Called once, when the first tray is seen.
    Subscription onSeen(Task handler) { return m_seen.subscribe(std::move(handler)); }

private:
    bool hasManager() const;
    void look();

    X11Connection& m_connection;
    xcb_atom_t m_selection;
    bool m_wereSeen = false;
    Publisher<> m_seen;
    Subscription m_managers;
    std::unique_ptr<StatusNotifierWatcher> m_notifierHosts;
};

} // namespace haloric
