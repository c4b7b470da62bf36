// One window with its own connection, as an ordinary program has it. Every verb waits until the window manager has
// carried out the request, and returns whether it did. Coordinates are root coordinates. One thread.
#pragma once

#include "testing/x11/DesktopObserver.h"
#include "testing/x11/ForeignProcess.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

namespace haloric {

class TestClient {
public:
    enum class Decoration {
        byWindowManager, // the window manager's default
        none,            // requests no decoration, by the Motif hints
    };
    enum class Management {
        managed,
        overrideRedirect, // such as a menu or a tooltip: not managed
    };

    enum class Application {
        ofTheTest, // shared by all such windows
        ownOne,    // a separate process owns the window (ForeignProcess)
    };

    struct Options {
        std::string title = "client";
        std::string className = "HaloricTestClient";
        ScreenRect content{300, 250, 600, 400}; // the inside of the window on the root
        Pixel color = 0xE0E0E0;
        std::string type = {}; // for instance "_NET_WM_WINDOW_TYPE_DIALOG"; empty: no property
        Decoration decoration = Decoration::byWindowManager;
        Management management = Management::managed;
        Application application = Application::ofTheTest;
        // The value of _NET_WM_PID; no value: no property. The default stands for the process of the application.
        std::optional<std::uint32_t> processId = static_cast<std::uint32_t>(::getpid());
        std::optional<std::array<std::uint32_t, 4>> gtkFrameExtents = {}; // left, right, top, bottom
        std::optional<xcb_window_t> transientFor = {};
    };

    // Creates the window without mapping it. `observer` outlives the client.
    TestClient(DesktopObserver& observer, const std::string& display, const Options& options);

    xcb_window_t window() const { return m_window; }
    TestConnection& connection() { return m_connection; }

    // Maps the window and waits until it is mapped and, with a window manager, in its list of clients.
    [[nodiscard]] bool show();
    [[nodiscard]] bool focus(); // requests activation, also when minimised
    [[nodiscard]] bool showFocused() { return show() && focus(); }
    [[nodiscard]] bool moveTo(int x, int y) { return setContent({x, y, content().width, content().height}); }
    [[nodiscard]] bool resizeTo(int width, int height) { return setContent({content().x, content().y, width, height}); }
    [[nodiscard]] bool setContent(const ScreenRect& wanted);
    [[nodiscard]] bool minimise();
    [[nodiscard]] bool setState(const std::string& state, bool isWanted); // such as "_NET_WM_STATE_ABOVE"
    [[nodiscard]] bool setFullScreen(bool isWanted) { return setState("_NET_WM_STATE_FULLSCREEN", isWanted); }
    [[nodiscard]] bool close();   // as the close button does; the client obeys WM_DELETE_WINDOW
    [[nodiscard]] bool destroy(); // without the window manager
    [[nodiscard]] bool raise();   // requests the top of the stack, without a change of focus

    // Sets the background to a picture of the window's size.
    void setPicture(const ScreenImage& picture);

    // Draws the inside again.
    void repaint();

    // Sends the request to move or resize without waiting.
    void requestContent(const ScreenRect& content);

    bool isListed(); // in _NET_CLIENT_LIST
    bool hasState(const std::string& state);
    ScreenRect content();              // the inside, as the X server reports it
    ScreenRect visibleFrame();         // with the decoration, without a shadow drawn by the client
    std::array<int, 4> frameExtents(); // left, right, top, bottom
    bool hasFocus() const { return m_hasFocus; }
    int buttonPresses() const { return m_buttonPresses; }
    int keyPresses() const { return m_keyPresses; }

    void processEvents() { m_connection.processEvents(); }

private:
    void createWindow(const Options& options);
    void setProperties(const Options& options);
    void handle(const xcb_generic_event_t& event);
    void noteFocus(const xcb_generic_event_t& event, bool isGained);
    bool waitUntil(const std::function<bool()>& predicate, std::chrono::milliseconds timeout = kTimeout);

    DesktopObserver& m_observer;
    std::unique_ptr<ForeignProcess> m_foreignProcess; // null: the test process
    TestConnection m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    bool m_isManaged = true;
    bool m_isMapped = false;
    bool m_isDestroyed = false;
    bool m_hasFocus = false;
    int m_buttonPresses = 0;
    int m_keyPresses = 0;
};

} // namespace haloric
