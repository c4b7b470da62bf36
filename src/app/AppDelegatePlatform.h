// What the application delegate needs from outside; everything outlives the delegate.
#pragma once

#include "menubar/StatusBarPlatform.h"
#include "overlay/OverlayPlatform.h"
#include "tracking/FocusTrackerPlatform.h"

namespace haloric {

class Accessibility;
class Alerts;
class Application;
class HotkeyManager;
class RunLoop;
class Workspace;

struct AppDelegatePlatform {
    RunLoop& runLoop;
    Workspace& workspace;
    Accessibility& accessibility;
    Application& application;
    Alerts& alerts;
    HotkeyManager& hotkeyManager;
    OverlayPlatform overlay;
    FocusTrackerPlatform tracking;
    StatusBarPlatform statusBar;
};

} // namespace haloric
