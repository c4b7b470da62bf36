// A desktop for one test: an X server, a window manager, optionally a compositor, and an observer. Each part is ready
// when the constructor returns; window manager and compositor can be stopped and started again. One thread.
#pragma once

#include "testing/x11/DesktopObserver.h"
#include "testing/x11/TestClient.h"
#include "testing/x11/TestInput.h"
#include "testing/x11/X11Server.h"

#include <memory>
#include <string>

namespace haloric {

enum class WindowManager {
    none,
    openbox,
    xfwm4,            // its own compositor off
    xfwm4Compositing, // its own compositor on
    metacity,         // without its compositor
    mutter,           // always composites
    i3,               // tiles; F5 puts the windows of a workspace into tabs, F6 side by side
};

enum class Compositor { none, picom };

class X11Session {
public:
    static constexpr Pixel kDesktopColor = 0x4080C0;

    explicit X11Session(WindowManager windowManager, Compositor compositor = Compositor::none,
                        const X11ServerOptions& options = {});
    ~X11Session();

    X11Server& server() { return *m_server; }
    DesktopObserver& observer() { return *m_observer; }
    TestInput& input() { return *m_input; }
    const std::string& display() const { return m_server->display(); }
    Environment environment() const { return m_environment; }

    std::unique_ptr<TestClient> makeClient(const TestClient::Options& options = {});

    // Each returns when the change is visible to other clients. Throws std::runtime_error when that fails.
    void startWindowManager();
    void stopWindowManager();
    void startCompositor();
    void stopCompositor();

    // Waits until the picture of `area` satisfies `predicate`. On failure, saves the screen as keepFailure() does.
    [[nodiscard]] bool waitForPixels(const std::string& name, const ScreenRect& area,
                                     const std::function<bool(const ScreenImage&)>& predicate,
                                     std::chrono::milliseconds timeout = kTimeout);

    // Drags the window by the middle of its title bar, by `right` and `down` pixels. Returns whether it has moved there
    // across; the button stays pressed.
    [[nodiscard]] bool dragByTitleBar(TestClient& client, int right, int down);

    // Saves the whole screen as `name`.png in the folder of failure pictures.
    void keepFailure(const std::string& name);

private:
    std::vector<std::string> windowManagerCommand() const;
    void startBus();
    std::unique_ptr<ChildProcess> start(const std::vector<std::string>& command, const char* logName);
    void waitForPart(ChildProcess& process, const char* logName, const std::function<bool()>& isReady);
    bool composites() const;

    WindowManager m_kind;
    std::unique_ptr<X11Server> m_server;
    Environment m_environment;
    std::unique_ptr<DesktopObserver> m_observer;
    std::unique_ptr<TestInput> m_input;
    std::unique_ptr<ChildProcess> m_bus;
    std::unique_ptr<ChildProcess> m_windowManager;
    std::unique_ptr<ChildProcess> m_compositor;
};

} // namespace haloric
