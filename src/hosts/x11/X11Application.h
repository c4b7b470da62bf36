// The running program: its event loop, the launch, reopening and end for its delegate, and its windows. Main thread.
#pragma once

#include "hosts/linux/loop/EventLoop.h"
#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11ClientTable.h"
#include "platform/Application.h"

#include <optional>

namespace haloric {

// The ordinary windows of this program, as the window manager lists them.
class X11ApplicationWindows {
public:
    // Both outlive it.
    X11ApplicationWindows(const X11ClientTable& clients, const X11Scale& scale) : m_clients(clients), m_scale(scale) {}

    // The active window; absent when it belongs to another program.
    std::optional<OwnWindow> key() const;

    // The one that was active last; absent when there is none.
    std::optional<OwnWindow> main() const;

private:
    OwnWindow describe(const X11Client& client) const;

    const X11ClientTable& m_clients;
    const X11Scale& m_scale;
};

class X11Application final : public Application {
public:
    // Both outlive it. `windows` may be null: no windows.
    explicit X11Application(EventLoop& loop, const X11ApplicationWindows* windows = nullptr)
        : m_loop(loop),
          m_windows(windows)
    {
    }

    void setDelegate(ApplicationDelegate* delegate) override { m_delegate = delegate; }

    // Docks and task bars list windows here, not programs: a program without windows is an accessory already.
    void setActivationPolicy(ActivationPolicy) override {}
    void activateIgnoringOtherApps() override {}

    // Returns when the program has been terminated, at once when that happened before.
    void run() override;
    void terminate() override; // the second time it does nothing
    bool isTerminated() const { return m_terminated; }

    // The user has started the program again, or has asked for its settings at the start: notifies the delegate, once
    // launching has finished.
    void reopen();

    ProcessID processID() const override;
    std::optional<OwnWindow> keyWindow() const override;
    std::optional<OwnWindow> mainWindow() const override;

private:
    EventLoop& m_loop;
    const X11ApplicationWindows* m_windows;
    ApplicationDelegate* m_delegate = nullptr;
    bool m_launched = false;
    bool m_reopensOnceLaunched = false;
    bool m_terminated = false;
};

} // namespace haloric
