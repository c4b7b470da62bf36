// The running program: its event loop, the events of its life for its delegate, and its windows. Main thread.
#pragma once

#include "hosts/linux/loop/EventLoop.h"
#include "hosts/x11/X11ApplicationWindows.h"
#include "platform/Application.h"

namespace haloric {

class X11Application final : public Application {
public:
    // Both outlive it. Without `windows`, it has none.
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

    // The user has started the program again, or wants its settings from the start: tells the delegate, once launching
    // has finished.
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
