// What the status bar controller needs from outside; everything outlives the controller.
#pragma once

#include "settings/SettingsViewDependencies.h"

#include <functional>

namespace haloric {

class Accessibility;
class Alerts;
class Application;
class Bundle;
class FormWindows;
class LaunchAtLogin;
class Panels;
class RunLoop;
class StatusItems;
class UpdaterManager;
class Workspace;

struct StatusBarDependencies {
    RunLoop& runLoop;
    StatusItems& statusItems;
    FormWindows& formWindows;
    Panels& panels;
    Alerts& alerts;
    Application& application;
    Accessibility& accessibility;
    Workspace& workspace;
    const Bundle& bundle;
    LaunchAtLogin& launchAtLogin;
    std::function<UpdaterManager&()> updaterManager; // the shared one, made at its first use
    SettingsViewDependencies settingsView;
};

} // namespace haloric
