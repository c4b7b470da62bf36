// Links to the refresh of a screen: the screen's own, through the Present extension. The older generation, links by
// display number with a thread of their own, is left out: its only use is a system without the newer one. Main thread.
#pragma once

#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "platform/DisplayLinks.h"
#include "platform/RunLoop.h"

namespace haloric {

class X11DisplayLinks final : public DisplayLinks {
public:
    // All outlive it.
    X11DisplayLinks(X11Connection& connection, RunLoop& runLoop, const X11Scale& scale);

    // Whether links follow the real refresh; otherwise they are timers at the screen's rate.
    bool followRefresh() const { return m_presentAvailable; }

    bool screenLinksAvailable() const override { return true; }
    std::unique_ptr<ScreenDisplayLink> makeScreenLink(const Screen& screen, Task tick) override;
    std::unique_ptr<VideoDisplayLink> makeVideoLink(DisplayID) override { return nullptr; } // there are none
    std::shared_ptr<DataAddSource> makeDataAddSource(Task handler) override;

private:
    X11Connection& m_connection;
    RunLoop& m_runLoop;
    const X11Scale& m_scale;
    bool m_presentAvailable;
};

} // namespace haloric
