// A client window of the test's own, over a connection of its own, as an ordinary program would have it. Every verb
// waits until the window manager has done what was asked and tells whether it did.
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
        byWindowManager, // whatever the window manager gives
        none,            // asks for no decoration by the Motif hints
    };
    enum class Management {
        managed,
        overrideRedirect, // such as a menu or a tooltip: the window manager leaves it alone
    };

    enum class Application {
        ofTheTest, // one with all other such windows
        ownOne,    // to everybody else, the window belongs to a process of its own
    };

    struct Options {
        std::string title = "client";
        std::string className = "HaloricTestClient";
        ScreenRect content{300, 250, 600, 400}; // the inside of the window on the root
        Pixel color = 0xE0E0E0;
        std::string type = {}; // for instance "_NET_WM_WINDOW_TYPE_DIALOG"; empty: the property is left out
        Decoration decoration = Decoration::byWindowManager;
        Management management = Management::managed;
        Application application = Application::ofTheTest;
        // What the window says of its process; none: nothing. Left as it is, it follows the application.
        std::optional<std::uint32_t> processId = static_cast<std::uint32_t>(::getpid());
        std::optional<std::array<std::uint32_t, 4>> gtkFrameExtents = {}; // left, right, top, bottom
        std::optional<xcb_window_t> transientFor = {};
    };

    // Makes the window, not yet mapped. `observer` outlives the client.
    TestClient(DesktopObserver& observer, const std::string& display, const Options& options);

    xcb_window_t window() const { return m_window; }
    TestConnection& connection() { return m_connection; }

    // Maps the window; waits until it is visible and, where there is a window manager, in its list of clients.
    [[nodiscard]] bool show();
    [[nodiscard]] bool focus(); // asks to be the active window, also out of the minimised state
    [[nodiscard]] bool showFocused() { return show() && focus(); }
    [[nodiscard]] bool moveTo(int x, int y) { return setContent({x, y, content().width, content().height}); }
    [[nodiscard]] bool resizeTo(int width, int height) { return setContent({content().x, content().y, width, height}); }
    [[nodiscard]] bool setContent(const ScreenRect& wanted);
    [[nodiscard]] bool minimise();
    [[nodiscard]] bool setState(const std::string& state, bool isWanted); // such as "_NET_WM_STATE_ABOVE"
    [[nodiscard]] bool setFullScreen(bool isWanted) { return setState("_NET_WM_STATE_FULLSCREEN", isWanted); }
    [[nodiscard]] bool close();   // as by the close button: the client obeys WM_DELETE_WINDOW
    [[nodiscard]] bool destroy(); // without asking anybody
    [[nodiscard]] bool raise();   // asks the window manager to restack, without a change of focus

    // Shows a picture as large as the inside instead of the one colour.
    void setPicture(const ScreenImage& picture);

    // Draws the inside again, as programs do all the time.
    void repaint();

    // Sends the move or resize without waiting, for drags.
    void requestContent(const ScreenRect& content);

    bool isListed(); // in _NET_CLIENT_LIST
    bool hasState(const std::string& state);
    ScreenRect content();              // the inside on the root, as the server has it
    ScreenRect visibleFrame();         // with the decoration; without the shadow that the client itself draws
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
    bool waitUntil(const std::function<bool()>& predicate, std::chrono::milliseconds patience = kPatience);

    DesktopObserver& m_observer;
    std::unique_ptr<ForeignProcess> m_standIn; // null: the test itself
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
