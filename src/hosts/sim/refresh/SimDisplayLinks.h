// Display links of the simulated desktop: they tick on the screen's refresh grid, in virtual time, for as long as the
// screen is there.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/DisplayLinks.h"

namespace haloric {

class SimDisplayLinks final : public DisplayLinks {
public:
    explicit SimDisplayLinks(SimDesktop& desktop) : m_desktop(desktop) {}

    bool screenLinksAvailable() const override { return m_desktop.systemVersion >= 14; }
    std::unique_ptr<ScreenDisplayLink> makeScreenLink(const Screen& screen, Task tick) override;
    std::unique_ptr<VideoDisplayLink> makeVideoLink(DisplayID display) override;
    std::shared_ptr<DataAddSource> makeDataAddSource(Task handler) override;

    // Links that tick at the moment, of both kinds.
    int runningLinks() const { return m_runningLinks; }

private:
    class Ticker;
    class ScreenLink;
    class VideoLink;
    class AddSource;

    const SimScreen* findScreen(DisplayID display) const; // null when no screen has this number

    SimDesktop& m_desktop;
    int m_runningLinks = 0;
};

} // namespace haloric
