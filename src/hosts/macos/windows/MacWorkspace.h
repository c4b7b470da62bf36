// NSWorkspace: the frontmost application, Spaces and URLs.
#pragma once

#include "platform/Workspace.h"

namespace haloric {

class MacWorkspace final : public Workspace {
public:
    std::optional<FrontmostApplication> frontmostApplication() const override;
    std::optional<std::string> bundleIdentifier(ProcessID pid) const override;
    Subscription observe(WorkspaceNotification notification, Task handler) override;
    void openURL(std::string_view url) override;
};

} // namespace haloric
