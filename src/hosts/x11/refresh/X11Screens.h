// RandR's monitors as screens, in points, all at one scale. Main thread.
//
// Also updates the shared scale, whose spaces start at the primary monitor. Several changes in one turn of the main
// loop are reported once, and only if they made a difference.
#pragma once

#include "foundation/Publisher.h"
#include "hosts/x11/refresh/X11Monitor.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "platform/Screens.h"

#include <vector>

namespace haloric {

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
