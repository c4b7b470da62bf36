// Haloric as an application of the simulated desktop: its key window, and its end.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/Application.h"

namespace haloric {

class SimApplication final : public Application {
public:
    explicit SimApplication(SimDesktop& desktop) : m_desktop(desktop) {}

    void setDelegate(ApplicationDelegate* delegate) override { m_delegate = delegate; }
    void setActivationPolicy(ActivationPolicy policy) override;
    void activateIgnoringOtherApps() override;
    void run() override; // returns once launching has finished; the owner of the desktop runs its loop
    void terminate() override;
    ProcessID processID() const override { return SimModel::kOwnProcess; }
    std::optional<OwnWindow> keyWindow() const override;
    std::optional<OwnWindow> mainWindow() const override { return keyWindow(); }

    // The user opens the application again while it runs.
    void reopen();

    bool hasTerminated() const { return m_terminated; }
    ActivationPolicy activationPolicy() const { return m_policy; }

private:
    SimDesktop& m_desktop;
    ApplicationDelegate* m_delegate = nullptr;
    ActivationPolicy m_policy = ActivationPolicy::regular;
    bool m_terminated = false;
};

} // namespace haloric
