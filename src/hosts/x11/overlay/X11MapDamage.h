// Makes sure that a compositor shows what was drawn right after a window was mapped. picom notices a mapping only at
// its next frame and forgets the damage that it heard of before; the window then stays invisible until it is damaged
// again. So each mapping is followed by damage of one pixel, several times, until any compositor has noticed. Main
// thread.
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
    // A frame or two of a compositor; then of one that is held up.
    static constexpr std::array kDelays{Seconds(0.03), Seconds(0.1), Seconds(0.4), Seconds(1.5)};

    // Both outlive it.
    X11MapDamage(X11Connection& connection, LinuxRunLoop& runLoop) : m_connection(connection), m_runLoop(runLoop) {}
    X11MapDamage(const X11MapDamage&) = delete;
    X11MapDamage& operator=(const X11MapDamage&) = delete;

    // The window has just been asked to be mapped. It may go away again at any time.
    void mapped(xcb_window_t window);

private:
    void arm();
    void echo();
    void damage(xcb_window_t window);

    X11Connection& m_connection;
    LinuxRunLoop& m_runLoop;
    std::vector<xcb_window_t> m_windows;
    std::size_t m_step = 0;
    Subscription m_timer;
};

} // namespace haloric
