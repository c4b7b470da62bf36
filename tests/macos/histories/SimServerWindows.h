// The windows of the stand-ins' toolkit on the simulated desktop: borderless ones are its overlays, those with a title
// bar ordinary windows of the program. Main thread.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "world/Backing.h"

namespace haloric {

class SimServerWindows final : public substitute::ServerWindows {
public:
    explicit SimServerWindows(SimDesktop& desktop) : m_desktop(desktop) {}

    std::unique_ptr<substitute::ServerWindow> make(const Rect& content, bool hasTitleBar, Events events) override;

private:
    SimDesktop& m_desktop;
};

} // namespace haloric
