// A connection to the X server: short calls that make a round trip each, and one way to wait. Requests on destroyed
// windows return empty values. One thread.
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

    // Connects to `display`, for instance ":3". Throws std::runtime_error when that fails.
    explicit TestConnection(const std::string& display);

    // Takes ownership of a socket that is connected to an X server.
    explicit TestConnection(int connectedSocket);
    ~TestConnection();
    TestConnection(const TestConnection&) = delete;
    TestConnection& operator=(const TestConnection&) = delete;

    xcb_connection_t* raw() const { return m_connection; }
    const xcb_screen_t& screen() const { return *m_screen; }
    xcb_window_t root() const { return m_screen->root; }
    xcb_atom_t atom(const std::string& name);

    // Called with every event, from within waitUntil() and processEvents().
    std::function<void(const xcb_generic_event_t&)> onEvent;

    // Waits until `predicate` holds: evaluates it at once, after every event, and at least every 10 ms, as pixels and
    // properties of other clients change without an event here. False after `timeout`.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& predicate, std::chrono::milliseconds timeout = kTimeout);

    // Handles the events that have arrived, without waiting.
    void processEvents();

    // Returns after the X server has processed every request sent so far.
    void synchronize();

    // Properties. A property of another format reads as empty.
    std::vector<std::uint32_t> values(xcb_window_t window, const std::string& property);
    std::optional<std::uint32_t> value(xcb_window_t window, const std::string& property);
    std::string text(xcb_window_t window, const std::string& property);
    void setValues(xcb_window_t window, const std::string& property, xcb_atom_t type,
                   const std::vector<std::uint32_t>& values);
    void setText(xcb_window_t window, const std::string& property, const std::string& text);

    // Sends a client message of up to five values to the root window, for the window manager.
    void sendToRoot(xcb_window_t window, const std::string& type, const std::vector<std::uint32_t>& data);

    // The screen's pixels; without an area, of the whole screen. Areas are clipped to the screen.
    ScreenImage capture();
    ScreenImage capture(const ScreenRect& area);

    // A pixmap of the root's depth with the pixels of `picture`; it exists as long as the connection.
    xcb_pixmap_t makePixmap(const ScreenImage& picture);

private:
    void setUp(int screenNumber, const std::string& name);

    xcb_connection_t* m_connection;
    const xcb_screen_t* m_screen = nullptr;
    std::map<std::string, xcb_atom_t> m_atoms;
};

} // namespace haloric
