// The running program: its event loop, and the events of its life for its delegate. It has no windows of its own
// that could take the focus. Main thread.
#pragma once

#include "hosts/x11/X11RunLoop.h"
#include "platform/Application.h"

namespace haloric {

class X11Application final : public Application {
public:
    // The loop outlives it.
    explicit X11Application(X11RunLoop& runLoop) : m_runLoop(runLoop) {}

    void setDelegate(ApplicationDelegate* delegate) override { m_delegate = delegate; }

    // Docks and task bars list windows here, not programs: a program without windows is an accessory already.
    void setActivationPolicy(ActivationPolicy) override {}
    void activateIgnoringOtherApps() override {}

    // Returns when the program has been terminated, at once when that happened before.
    void run() override;
    void terminate() override; // the second time it does nothing

    // The user has started the program again: tells the delegate, once launching has begun.
    void reopen();

    ProcessID processID() const override;
    std::optional<OwnWindow> keyWindow() const override { return {}; }
    std::optional<OwnWindow> mainWindow() const override { return {}; }

private:
    X11RunLoop& m_runLoop;
    ApplicationDelegate* m_delegate = nullptr;
    bool m_launched = false;
    bool m_terminated = false;
};

} // namespace haloric
