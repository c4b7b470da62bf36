// What the application delegate needs from outside; everything outlives the delegate.
#pragma once

#include "overlay/OverlayPlatform.h"
#include "tracking/FocusTrackerPlatform.h"

namespace haloric {

class Accessibility;
class Alerts;
class Application;
class RunLoop;
class Workspace;

struct AppDelegatePlatform {
    RunLoop& runLoop;
    Workspace& workspace;
    Accessibility& accessibility;
    Application& application;
    Alerts& alerts;
    OverlayPlatform overlay;
    FocusTrackerPlatform tracking;
};

} // namespace haloric
