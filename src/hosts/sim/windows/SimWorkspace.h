// The frontmost application of the simulated desktop, and its changes.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/Workspace.h"

namespace haloric {

class SimWorkspace final : public Workspace {
public:
    explicit SimWorkspace(SimDesktop& desktop) : m_desktop(desktop) {}

    std::optional<FrontmostApplication> frontmostApplication() const override;
    std::optional<std::string> bundleIdentifier(ProcessID pid) const override;
    Subscription observe(WorkspaceNotification notification, Task handler) override;
    void openURL(std::string_view url) override;

private:
    SimDesktop& m_desktop;
};

} // namespace haloric
