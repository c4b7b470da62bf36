// What a user is told at launch when nobody on the display tells which window has the focus. Main thread.
#pragma once

#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/x11/windows/X11WindowManager.h"
#include "platform/Alerts.h"

namespace haloric::X11Onboarding {

// Says that there is no window manager to be asked. Its one button changes nothing.
AlertModel alert();

// A desktop starts its parts in any order, so a window manager may come just after this program: turns the loop until
// one runs, `isEnding` says so, or a little while has passed.
void waitForWindowManager(const X11WindowManager& windowManager, LinuxRunLoop& runLoop,
                          const std::function<bool()>& isEnding);

} // namespace haloric::X11Onboarding
