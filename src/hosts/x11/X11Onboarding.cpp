#include "hosts/x11/X11Onboarding.h"

namespace haloric::X11Onboarding {

namespace {

constexpr Seconds kPatience{3};

} // namespace

AlertModel alert()
{
    return {
        .messageText = "Haloric needs a window manager",
        .informativeText =
            "Haloric asks the window manager which window has the focus and where it is. None runs on this display, or "
            "the one that runs does not tell (it would have to follow the Extended Window Manager Hints).\n\nThe "
            "highlight appears as soon as one does.",
        .style = AlertStyle::informational,
        .icon = AlertIcon::application,
        .buttons = {"OK"},
    };
}

void waitForWindowManager(const X11WindowManager& windowManager, LinuxRunLoop& runLoop,
                          const std::function<bool()>& isEnding)
{
    const Seconds deadline = runLoop.systemUptime() + kPatience;
    while (!windowManager.isRunning() && !isEnding() && runLoop.systemUptime() < deadline)
        runLoop.turn(deadline - runLoop.systemUptime());
}

} // namespace haloric::X11Onboarding
