// Everything outside that the focus tracker uses. Each referenced object outlives the tracker.
#pragma once

namespace haloric {

class Accessibility;
class Application;
class DisplayLinks;
class InputMonitors;
class RunLoop;
class Screens;
class SerialQueues;
class SharedWindowServer;
class VideoLinks;
class WindowInfoSource;
class Workspace;

struct FocusTrackerDependencies {
    RunLoop& runLoop;
    SerialQueues& serialQueues;
    DisplayLinks& displayLinks;
    Workspace& workspace;
    Screens& screens;
    Accessibility& accessibility;
    WindowInfoSource& windowInfo;
    InputMonitors& input;
    Application& application;
    SharedWindowServer& windowServer;
    VideoLinks* videoLinks = nullptr; // if set, used instead of displayLinks
};

} // namespace haloric
