// What an Accessibility element stands for here: an application, one of its windows, or the close button that a
// window's title bar is taken to have. A value; it says nothing about whether the thing still exists.
#pragma once

#include "foundation/Ids.h"
#include "platform/Accessibility.h"

#include <xcb/xcb.h>

namespace haloric {

class X11AccessibilityElement final : public AXElementObject {
public:
    enum class Kind { application, window, closeButton };

    X11AccessibilityElement(Kind kind, ProcessID pid, xcb_window_t window) : m_kind(kind), m_pid(pid), m_window(window)
    {
    }

    Kind kind() const { return m_kind; }
    ProcessID pid() const { return m_pid; }
    xcb_window_t window() const { return m_window; } // none for an application

private:
    Kind m_kind;
    ProcessID m_pid;
    xcb_window_t m_window;
};

} // namespace haloric
