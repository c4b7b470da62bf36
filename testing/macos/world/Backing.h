// A desktop behind the stand-ins: the adapters of another host of the project. While there is one, the stand-ins pass
// on to it what the program asks of the system, time and queues included, and everything runs on the main thread.
// Without one they keep real time, start real threads, and show the World. Main thread.
#pragma once

#include "app/ApplicationDependencies.h"
#include "foundation/Geometry.h"
#include "platform/Screens.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace haloric {
class Canvas;
}

namespace substitute {

// What the window server has of one of the program's windows, and its contents there. Frames are in global space.
class ServerWindow {
public:
    enum class Space { wherePlaced, active };

    virtual ~ServerWindow() = default;

    virtual std::int64_t number() const = 0; // zero or less: none yet
    virtual haloric::Rect frame() const = 0; // as the toolkit last set it
    virtual double titleBarHeight() const = 0;
    virtual bool isVisible() const = 0;

    virtual void setFrame(const haloric::Rect& frame) = 0;
    virtual void setLevel(std::int64_t level) = 0;
    virtual void setTitle(const std::string& title) = 0;
    virtual void center() = 0;
    virtual void orderFront(Space space) = 0;
    virtual void makeKeyAndOrderFront() = 0;
    virtual void orderOut() = 0;

    virtual void contentsAreOutdated() = 0;
    virtual void drawContents() = 0;
};

class ServerWindows {
public:
    struct Events {
        std::function<void(haloric::Canvas&)> draw;
        std::function<void()> closedByUser;
    };

    virtual ~ServerWindows() = default;

    // Ordered out. `content`: of the window without its title bar.
    virtual std::unique_ptr<ServerWindow> make(const haloric::Rect& content, bool hasTitleBar, Events events) = 0;
};

struct Backing {
    using Texts = std::map<std::string, std::string, std::less<>>;

    const haloric::ApplicationDependencies& adapters;
    haloric::VideoLinks& videoLinks; // whatever the system's version is
    ServerWindows& windows;
    const Texts& environment;
    const Texts& information; // of the main bundle
    std::function<bool(haloric::ProcessID)> isRunning;
    std::function<bool(haloric::ProcessID)> activate; // makes it frontmost; false if it does not run
};

const Backing* backing(); // null: none

// The backing outlives its use; null ends it. No object of the program exists meanwhile.
void setBacking(const Backing* backing);

// The screens of the backing as AppKit has them. AppKit's screens, and with them its space and the frames of its
// windows, change when NSApplicationDidChangeScreenParametersNotification is posted; the window server's may have
// changed before.
const std::vector<haloric::Screen>& screensOfAppKit();

// From AppKit's space to global space, and back.
haloric::Rect flippedByAppKit(const haloric::Rect& rect);

} // namespace substitute
