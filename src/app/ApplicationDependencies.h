// Every adapter that the program needs from its host. The host's `main` makes them and passes them to HaloricProgram,
// which gives every other class only what that class uses.
#pragma once

#include "platform/Alerts.h"
#include "settings/HostTexts.h"

#include <optional>

namespace haloric {

class Accessibility;
class Application;
class ApplicationCatalog;
class Bundle;
class DisplayLinks;
class FormWindows;
class Hotkeys;
class InputMonitors;
class Log;
class LoginItemService;
class Panels;
class Processes;
class RunLoop;
class Screens;
class SerialQueues;
class StatusItems;
class ToolkitWindows;
class UpdaterFramework;
class UserDefaults;
class VideoLinks;
class WindowInfoSource;
class WindowServerCalls;
class Workspace;

struct ApplicationDependencies {
    RunLoop& runLoop;
    SerialQueues& serialQueues;
    DisplayLinks& displayLinks;
    Workspace& workspace;
    Screens& screens;
    Accessibility& accessibility;
    WindowInfoSource& windowInfoSource;
    WindowServerCalls& windowServerCalls;
    ToolkitWindows& toolkitWindows;
    InputMonitors& input;
    Application& application;
    Alerts& alerts;
    StatusItems& statusItems;
    FormWindows& formWindows;
    Hotkeys& hotkeys;
    LoginItemService& loginItems;
    UpdaterFramework& updaterFramework;
    Panels& panels;
    ApplicationCatalog& applicationCatalog;
    const Bundle& bundle;
    UserDefaults& userDefaults;
    Processes& processes;
    Log& log;

    // Where the system makes no links from screens; then used instead of displayLinks.
    VideoLinks* videoLinks = nullptr;

    // Shown at launch without Accessibility access, by hosts where something other than the permission of macOS is
    // missing; absent: the default text.
    std::optional<AlertModel> onboardingAlert = {};

    HostTexts texts = {};
};

} // namespace haloric
