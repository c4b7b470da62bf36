// A connection to the X server as a test uses it: short calls with round trips, and one way to wait.
//
// Requests on windows that have gone give empty answers. One thread.
#pragma once

#include "testing/x11/Deadline.h"
#include "testing/x11/ScreenImage.h"

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace haloric {

class TestConnection {
public:
    struct Free {
        void operator()(void* memory) const { std::free(memory); }
    };
    template <class T>
    using Reply = std::unique_ptr<T, Free>;

    // Throws std::runtime_error when the display does not answer.
    explicit TestConnection(const std::string& display);

    // Takes over a socket that is connected to an X server, and owns it from now on.
    explicit TestConnection(int connectedSocket);
    ~TestConnection();
    TestConnection(const TestConnection&) = delete;
    TestConnection& operator=(const TestConnection&) = delete;

    xcb_connection_t* raw() const { return m_connection; }
    const xcb_screen_t& screen() const { return *m_screen; }
    xcb_window_t root() const { return m_screen->root; }
    xcb_atom_t atom(const std::string& name);

    // Called with every event, from within the waits.
    std::function<void(const xcb_generic_event_t&)> onEvent;

    // Waits until `predicate` holds: asks at once, after every event, and at least every 10 ms, as pixels and
    // properties of others change without an event to this connection. False when the patience ends.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& predicate,
                                 std::chrono::milliseconds patience = kPatience);

    // Takes in the events that have arrived, without waiting.
    void processEvents();

    // Returns after the server has processed everything sent so far.
    void synchronize();

    // Properties. Values of another format or type than asked for are read as nothing.
    std::vector<std::uint32_t> values(xcb_window_t window, const std::string& property);
    std::optional<std::uint32_t> value(xcb_window_t window, const std::string& property);
    std::string text(xcb_window_t window, const std::string& property);
    void setValues(xcb_window_t window, const std::string& property, xcb_atom_t type,
                   const std::vector<std::uint32_t>& values);
    void setText(xcb_window_t window, const std::string& property, const std::string& text);

    // Sends a client message to the root window, as the window manager expects it.
    void sendToRoot(xcb_window_t window, const std::string& type, const std::vector<std::uint32_t>& data);

    // A picture of what the screen shows; the whole screen when no area is given. Areas are cut at the screen's edges.
    ScreenImage capture();
    ScreenImage capture(const ScreenRect& area);

    // A pixmap of the root's depth that shows `picture`; it lives as long as the connection.
    xcb_pixmap_t makePixmap(const ScreenImage& picture);

private:
    void setUp(int screenNumber, const std::string& name);

    xcb_connection_t* m_connection;
    const xcb_screen_t* m_screen = nullptr;
    std::map<std::string, xcb_atom_t> m_atoms;
};

} // namespace haloric
