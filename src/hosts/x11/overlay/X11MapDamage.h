// Repeats damage after a window is mapped, so that a compositor shows what was drawn right after the mapping. picom
// handles a mapping only at its next frame and discards the damage reported before; the window then stays invisible
// until the next damage. So each mapping is followed by damage of one pixel at several delays. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/x11/server/X11Connection.h"

#include <array>
#include <cstddef>
#include <vector>

namespace haloric {

class X11MapDamage {
public:
    // After a mapping: a frame or two of a compositor, then longer for a busy one.
    static constexpr std::array kDelays{Seconds(0.03), Seconds(0.1), Seconds(0.4), Seconds(1.5)};

    // Both outlive it.
    X11MapDamage(X11Connection& connection, LinuxRunLoop& runLoop) : m_connection(connection), m_runLoop(runLoop) {}
    X11MapDamage(const X11MapDamage&) = delete;
    X11MapDamage& operator=(const X11MapDamage&) = delete;

    // Call after the request that maps the window. The window may be destroyed at any time.
    void mapped(xcb_window_t window);

private:
    void schedule();
    void damageAll();
    void damage(xcb_window_t window);

    X11Connection& m_connection;
    LinuxRunLoop& m_runLoop;
    std::vector<xcb_window_t> m_windows;
    std::size_t m_step = 0; // index of the next delay
    Subscription m_timer;
};

} // namespace haloric
