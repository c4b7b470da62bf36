// Every adapter that the program needs from its host. The host's `main` makes them as locals and hands them to the
// entry sequence, which alone takes this apart: every other class is given just what it uses.
#pragma once

namespace haloric {

class Accessibility;
class Alerts;
class Application;
class Bundle;
class DisplayLinks;
class InputMonitors;
class Log;
class Processes;
class RunLoop;
class Screens;
class SerialQueues;
class ToolkitWindows;
class UserDefaults;
class WindowInfoSource;
class WindowServerLibrary;
class Workspace;

struct ApplicationPlatform {
    RunLoop& runLoop;
    SerialQueues& serialQueues;
    DisplayLinks& displayLinks;
    Workspace& workspace;
    Screens& screens;
    Accessibility& accessibility;
    WindowInfoSource& windowInfoSource;
    WindowServerLibrary& windowServerLibrary;
    ToolkitWindows& toolkitWindows;
    InputMonitors& input;
    Application& application;
    Alerts& alerts;
    const Bundle& bundle;
    UserDefaults& userDefaults;
    Processes& processes;
    Log& log;
};

} // namespace haloric
