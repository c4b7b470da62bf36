// What the application delegate needs from outside; everything outlives the delegate.
#pragma once

#include "menubar/StatusBarPlatform.h"
#include "overlay/OverlayPlatform.h"
#include "platform/Alerts.h"
#include "tracking/FocusTrackerPlatform.h"

#include <optional>

namespace haloric {

class Accessibility;
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
    std::optional<AlertModel> onboardingAlert = {}; // absent: the usual words
};

} // namespace haloric
