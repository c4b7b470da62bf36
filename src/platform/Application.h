// The running application object: policy, activation, event loop, delegate events, and its own windows. Main thread.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "platform/ActivationPolicy.h"

#include <cstdint>
#include <optional>

namespace haloric {

class ApplicationDelegate {
public:
    virtual ~ApplicationDelegate() = default;
    virtual void applicationDidFinishLaunching() = 0;

    // The user opened the application again while it runs. Returns whether the default handling should follow.
    virtual bool applicationShouldHandleReopen([[maybe_unused]] bool hasVisibleWindows) { return true; }

    virtual void applicationWillTerminate() = 0;
};

// One of this application's own windows.
struct OwnWindow {
    Rect frame;                     // screen space
    double contentLayoutHeight = 0; // points; the frame's height without the title bar
    std::int64_t number = 0;
    bool visible = false;
    bool overlay = false; // one of the highlight's or the dimming's windows
};

class Application {
public:
    virtual ~Application() = default;

    // Held weakly: the caller keeps the delegate alive until `run` has returned.
    virtual void setDelegate(ApplicationDelegate* delegate) = 0;
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    virtual void activateIgnoringOtherApps() = 0;

    // Delivers applicationDidFinishLaunching, then events until `terminate`. On macOS it never returns; other
    // hosts return when the application has terminated (the simulated one at once: its loop is run from outside).
    virtual void run() = 0;

    // Delivers applicationWillTerminate, then ends the program (or its loop).
    virtual void terminate() = 0;

    virtual ProcessID processID() const = 0;

    virtual std::optional<OwnWindow> keyWindow() const = 0;
    virtual std::optional<OwnWindow> mainWindow() const = 0;
};

} // namespace haloric
