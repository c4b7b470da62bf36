// Applications and Spaces as the desktop sees them. Main thread; nothing blocks on an application.
#pragma once

#include "foundation/Ids.h"
#include "foundation/Subscription.h"
#include "foundation/Task.h"

#include <optional>
#include <string>
#include <string_view>

namespace haloric {

struct FrontmostApplication {
    ProcessID pid = ProcessID::none;
    bool hidden = false;
};

enum class WorkspaceNotification {
    didActivateApplication,
    activeSpaceDidChange,
    didTerminateApplication,
};

class Workspace {
public:
    virtual ~Workspace() = default;

    // Absent when no application is frontmost. Costs no allocation.
    virtual std::optional<FrontmostApplication> frontmostApplication() const = 0;

    // The bundle identifier of the application that runs as `pid`; absent without a process or identifier.
    virtual std::optional<std::string> bundleIdentifier(ProcessID pid) const = 0;

    // Delivered on the main thread, after the change.
    virtual Subscription observe(WorkspaceNotification notification, Task handler) = 0;

    // Asks the system to open a URL; failure is not reported.
    virtual void openURL(std::string_view url) = 0;
};

} // namespace haloric
