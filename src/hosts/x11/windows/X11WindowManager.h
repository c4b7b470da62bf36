// The window manager that runs on the display, if it supports the Extended Window Manager Hints: it names a check
// window on the root, and that window names itself. A window manager that was killed leaves the first half behind, so
// both are required. Window managers come and go. Main thread.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/x11/server/X11Connection.h"

#include <functional>
#include <string>
#include <vector>

namespace haloric {

class X11WindowManager {
public:
    // Reads the properties. The connection outlives it.
    explicit X11WindowManager(X11Connection& connection);
    X11WindowManager(const X11WindowManager&) = delete;
    X11WindowManager& operator=(const X11WindowManager&) = delete;

    // Reads them again if an event says that they may have changed. True when it has asked the server.
    bool update();

    bool isRunning() const { return m_isRunning; }
    const std::string& name() const { return m_name; } // empty when none runs or it has no name

    // Whether it announces a hint, such as _NET_FRAME_EXTENTS.
    bool supports(xcb_atom_t hint) const;

    // Whether it sets the extents of decorations; then a window without extents has no decoration.
    bool reportsDecoration() const { return supports(m_atoms.frameExtents); }

    // Turns the loop until one runs, `isEnding` returns true, or `patience` is over. A desktop starts its parts in any
    // order, so a window manager may start just after this program.
    void waitUntilRunning(LinuxRunLoop& runLoop, Seconds patience, const std::function<bool()>& isEnding) const;

    // One came, went, or was replaced by another.
    Subscription onChange(Task handler) { return m_changes.subscribe(std::move(handler)); }

private:
    void propertyChanged(const xcb_property_notify_event_t& event);
    void read();

    X11Connection& m_connection;
    const X11Atoms& m_atoms;
    xcb_window_t m_checkWindow = XCB_WINDOW_NONE;
    bool m_mayHaveChanged = false;
    bool m_isRunning = false;
    std::string m_name;
    std::vector<xcb_atom_t> m_supported;
    Publisher<> m_changes;
    std::vector<Subscription> m_subscriptions;
};

} // namespace haloric
