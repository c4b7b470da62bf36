// The Accessibility attributes that the focus query reads, answered from the properties of managed windows. Main
// thread.
//
// The program is trusted when a window manager runs that reports the focus and the frames. Attributes come from the
// table of clients: nothing here blocks on a client or on the server, so timeouts have no effect and no call reports
// that an application did not answer.
#pragma once

#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11Clients.h"
#include "hosts/x11/windows/X11WindowManager.h"
#include "platform/Accessibility.h"
#include "platform/RunLoop.h"

#include <xcb/xcb.h>

namespace haloric {

// What an element stands for: an application, one of its windows, or the close button of a window's title bar. A value;
// the window may be gone.
class X11AccessibilityElement final : public AXElementObject {
public:
    enum class Kind { application, window, closeButton };

    X11AccessibilityElement(Kind kind, ProcessID pid, xcb_window_t window) : m_kind(kind), m_pid(pid), m_window(window)
    {
    }

    Kind kind() const { return m_kind; }
    ProcessID pid() const { return m_pid; }
    xcb_window_t window() const { return m_window; } // XCB_WINDOW_NONE for an application

private:
    Kind m_kind;
    ProcessID m_pid;
    xcb_window_t m_window;
};

class X11Accessibility final : public Accessibility {
public:
    // All outlive it and its observers.
    X11Accessibility(RunLoop& runLoop, X11Clients& clients, const X11WindowManager& windowManager,
                     const X11Scale& scale)
        : m_runLoop(runLoop),
          m_clients(clients),
          m_windowManager(windowManager),
          m_scale(scale)
    {
    }

    bool isProcessTrusted() const override { return m_windowManager.isRunning(); }
    bool canBeGranted() const override { return false; } // X11 has no permission to ask for
    bool isProcessTrustedWithPrompt(bool) override { return isProcessTrusted(); }

    AXElement createApplicationElement(ProcessID pid) override;
    void setMessagingTimeout(const AXElement&, float) override {}
    AXAttribute copyAttribute(const AXElement& element, std::string_view name) override;
    AXWindowNumber windowNumber(const AXElement& element) override;
    std::uint64_t hash(const AXElement& element) override;
    std::unique_ptr<AXObserver> createObserver(ProcessID pid, ObserverCallback callback) override;

private:
    AXAttribute applicationAttribute(const X11AccessibilityElement& element, std::string_view name) const;
    AXAttribute windowAttribute(const X11Client& client, std::string_view name) const;
    AXAttribute closeButton(const X11Client& client) const;
    AXAttribute closeButtonAttribute(const X11Client& client, std::string_view name) const;

    RunLoop& m_runLoop;
    X11Clients& m_clients;
    const X11WindowManager& m_windowManager;
    const X11Scale& m_scale;
};

} // namespace haloric
