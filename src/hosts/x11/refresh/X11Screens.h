// RandR's monitors as screens, in points, all at one scale. Main thread.
//
// Also updates the shared scale, whose spaces start at the primary monitor. Several changes in one turn of the main
// loop are reported once, and only if they made a difference.
#pragma once

#include "drawing/PixelRect.h"
#include "foundation/Publisher.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "platform/Screens.h"

#include <cstdint>
#include <span>
#include <vector>

#include <xcb/randr.h>
#include <xcb/xcb.h>

namespace haloric {

// A RandR monitor, in pixels of the root window.
struct X11Monitor {
    std::uint32_t identifier = 0; // the atom of its name, which stays while the monitor keeps its connector
    bool primary = false;
    PixelRect frame;
    double framesPerSecond = 0; // 0: unknown

    friend bool operator==(const X11Monitor&, const X11Monitor&) = default;

    // Active monitors in the order of `inOrder`. For a server without RandR 1.5 one monitor, as large as the root
    // window. Three round trips.
    static std::vector<X11Monitor> readAll(xcb_connection_t* connection, const xcb_screen_t& screen);

    // Primary first, without empty ones, and without mirrored duplicates: those that cover the same as an earlier one.
    static std::vector<X11Monitor> inOrder(std::vector<X11Monitor> monitors);

    // The smallest rectangle that holds them all.
    static PixelRect around(std::span<const X11Monitor> monitors);

    // The refresh rate of a video mode; 0 if unknown.
    static double framesPerSecondOf(const xcb_randr_mode_info_t& mode);
};

class X11Screens final : public Screens {
public:
    static constexpr double kUsualFramesPerSecond = 60; // for monitors of unknown rate

    // Reads the monitors. Both outlive it.
    X11Screens(X11Connection& connection, X11Scale& scale);

    // Reads them again if an event says that they may have changed. True when it has asked the server.
    bool update();

    std::span<const Screen> all() const override { return m_screens; }
    Subscription onParametersChange(Task handler) override { return m_changes.subscribe(std::move(handler)); }

    static Screen describe(const X11Monitor& monitor, const X11Space& space);

private:
    void listen();
    void read();

    X11Connection& m_connection;
    X11Scale& m_scale;
    std::vector<Screen> m_screens;
    bool m_mayHaveChanged = false;
    Publisher<> m_changes;
    std::vector<Subscription> m_subscriptions;
};

} // namespace haloric
