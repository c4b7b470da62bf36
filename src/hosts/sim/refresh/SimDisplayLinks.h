// Display links of the simulated desktop, by screen and by display number. They tick on the screen's refresh grid in
// virtual time, until the screen is removed.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/DisplayLinks.h"
#include "platform/VideoLinks.h"

namespace haloric {

class SimDisplayLinks final : public DisplayLinks, public VideoLinks {
public:
    explicit SimDisplayLinks(SimDesktop& desktop) : m_desktop(desktop) {}

    // Whether `makeScreenLink` makes any, as on macOS 14 and later.
    bool makesLinksFromScreens() const { return m_desktop.systemVersion >= 14; }
    std::unique_ptr<ScreenDisplayLink> makeScreenLink(const Screen& screen, Task tick) override;
    std::unique_ptr<VideoDisplayLink> makeVideoLink(DisplayID display) override;
    std::shared_ptr<DataAddSource> makeDataAddSource(Task handler) override;

    // Running links of both kinds.
    int runningLinks() const { return m_runningLinks; }

private:
    class Ticker;
    class ScreenLink;
    class VideoLink;
    class AddSource;

    const SimScreen* findScreen(DisplayID display) const; // null if no screen has this number

    SimDesktop& m_desktop;
    int m_runningLinks = 0;
};

} // namespace haloric
