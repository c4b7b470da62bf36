// What the application delegate needs from outside; everything outlives the delegate.
#pragma once

#include "menubar/StatusBarDependencies.h"
#include "overlay/OverlayDependencies.h"
#include "platform/Alerts.h"
#include "tracking/FocusTrackerDependencies.h"

#include <optional>

namespace haloric {

class Accessibility;
class Application;
class HotkeyManager;
class RunLoop;
class Workspace;

struct AppDelegateDependencies {
    RunLoop& runLoop;
    Workspace& workspace;
    Accessibility& accessibility;
    Application& application;
    Alerts& alerts;
    HotkeyManager& hotkeyManager;
    OverlayDependencies overlay;
    FocusTrackerDependencies tracking;
    StatusBarDependencies statusBar;
    std::optional<AlertModel> onboardingAlert = {}; // absent: the default text
};

} // namespace haloric
