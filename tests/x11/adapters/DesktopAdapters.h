// The adapters under test, on a session's display and wired as in the program, and functions that wait for what they
// see.
#pragma once

#include "fakes/FakeLog.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/x11/X11Desktop.h"
#include "testing/x11/Deadline.h"
#include "testing/x11/ScreenImage.h"
#include "testing/x11/X11Session.h"

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace haloric {

// What the adapters are made on.
struct AdaptersDisplay {
    explicit AdaptersDisplay(const std::string& displayName)
        : display(displayName),
          connection(X11Connection::open(display.c_str(), loop))
    {
    }

    std::string display;
    FakeLog log;
    LinuxRunLoop loop;
    std::unique_ptr<X11Connection> connection;
};

class DesktopAdapters : public AdaptersDisplay, public X11Desktop {
public:
    explicit DesktopAdapters(const std::string& displayName)
        : AdaptersDisplay(displayName),
          X11Desktop(*connection, loop, log)
    {
    }

    // Turns the loop until `predicate` holds; false after `timeout`.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& predicate, std::chrono::milliseconds timeout = kTimeout)
    {
        const Deadline deadline(timeout);
        while (!predicate()) {
            if (deadline.isOver())
                return false;
            loop.turn(Seconds(0.01));
        }
        return true;
    }

    // Shows a window and waits until the window manager has given it the focus. A request for the focus at once might
    // be granted first, and the focus that comes with the showing would then undo a later change. A window manager that
    // has just started may give none, so it is requested after a while.
    [[nodiscard]] bool appear(TestClient& client)
    {
        const auto isFocused = [&] { return focusedWindow() == client.window(); };
        return client.show() && (waitUntil(isFocused, kTimeout / 4) || (client.focus() && waitUntil(isFocused)));
    }

    // Dispatches everything that the server has sent for what happened before this call.
    void settle()
    {
        const auto cookie = xcb_get_input_focus(connection->raw());
        const XcbReply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(connection->raw(), cookie, nullptr));
        loop.turn(Seconds(0));
        loop.turn(Seconds(0));
    }

    ProcessID frontmost() const
    {
        const auto application = workspace.frontmostApplication();
        return application ? application->pid : ProcessID::none;
    }

    AXAttribute attributeOf(const AXElement& element, std::string_view name)
    {
        return accessibility.copyAttribute(element, name);
    }

    template <class T>
    std::optional<T> valueOf(const AXElement& element, std::string_view name)
    {
        const AXAttribute attribute = attributeOf(element, name);
        const T* value = std::get_if<T>(&attribute.value);
        return attribute.error == AXError::success && value ? std::optional(*value) : std::nullopt;
    }

    // The window that a process has in focus, else its main window; null without one.
    AXElement focusedElement(ProcessID pid)
    {
        const AXElement application = accessibility.createApplicationElement(pid);
        for (const char* name : {"AXFocusedWindow", "AXMainWindow"}) {
            if (const auto found = valueOf<AXElement>(application, name))
                return *found;
        }
        return nullptr;
    }

    xcb_window_t focusedWindow()
    {
        return static_cast<xcb_window_t>(accessibility.windowNumber(focusedElement(frontmost())).number);
    }

    std::optional<Rect> listedBounds(xcb_window_t window)
    {
        const auto list =
            windowInfoSource.copyWindowInfo(WindowListOptions::includingWindow, static_cast<WindowNumber>(window));
        return list->empty() ? std::nullopt : std::optional(std::get<Rect>(list->front().bounds));
    }

    std::vector<xcb_window_t> listedWindows()
    {
        std::vector<xcb_window_t> windows;
        const auto options = WindowListOptions::onScreenOnly | WindowListOptions::excludeDesktopElements;
        const auto list = windowInfoSource.copyWindowInfo(options, WindowNumber::none);
        for (const WindowInfo& info : *list)
            windows.push_back(static_cast<xcb_window_t>(std::get<std::int64_t>(info.number)));
        return windows;
    }
};

// Root pixels as points of the global space, on a desktop with one unscaled screen.
inline Rect pointsOf(const ScreenRect& rect)
{
    return {double(rect.x), double(rect.y), double(rect.width), double(rect.height)};
}

// A server without process ids of its clients, so that the windows' properties count.
inline X11ServerOptions withoutProcessIds() { return {.arguments = {"-extension", "X-Resource"}}; }

// The window managers that differ most: in frames, in minimising, and in reporting the focus.
inline std::string nameOf(WindowManager windowManager)
{
    switch (windowManager) {
    case WindowManager::openbox:
        return "openbox";
    case WindowManager::xfwm4:
        return "xfwm4";
    case WindowManager::metacity:
        return "metacity";
    case WindowManager::i3:
        return "i3";
    default:
        return "other";
    }
}

inline std::string nameOfParameter(const testing::TestParamInfo<WindowManager>& info) { return nameOf(info.param); }

inline void PrintTo(WindowManager windowManager, std::ostream* out) { *out << nameOf(windowManager); }

} // namespace haloric
