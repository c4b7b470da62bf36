// Applications and desktops, from the managed windows: an application is a process that has some. The frontmost one
// owns the active window; an activation is reported when that is another process than before, or the same one that is
// no longer hidden. Main thread.
#pragma once

#include "foundation/Publisher.h"
#include "hosts/linux/files/DesktopEntries.h"
#include "hosts/x11/windows/X11Clients.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace haloric {

class X11Workspace final : public Workspace {
public:
    // Between two windows, many window managers report for an instant that none is active. The previous one stays
    // frontmost that long, unless it has ended.
    static constexpr Seconds kFocusGap{0.05};

    // Both outlive it.
    X11Workspace(X11Clients& clients, RunLoop& runLoop);

    std::optional<FrontmostApplication> frontmostApplication() const override { return m_frontmost; }
    std::optional<std::string> bundleIdentifier(ProcessID pid) const override;
    Subscription observe(WorkspaceNotification notification, Task handler) override;

    // Opens it with the user's preferred application, on another thread, because starting one may block. Addresses of
    // macOS settings have no meaning on Linux and are ignored.
    void openURL(std::string_view url) override;

private:
    std::optional<FrontmostApplication> lookForFrontmost() const;
    std::optional<FrontmostApplication> bridgeGap();
    void takeIn();
    bool replaceFrontmost(std::optional<FrontmostApplication> frontmost);
    void publish(WorkspaceNotification notification);

    X11Clients& m_clients;
    RunLoop& m_runLoop;
    mutable DesktopEntries m_entries; // caches its matches
    std::optional<FrontmostApplication> m_frontmost;
    std::uint32_t m_desktop;
    std::vector<ProcessID> m_processes; // sorted
    std::array<Publisher<>, 3> m_publishers;
    Subscription m_passes;
    Subscription m_gapEnd;
};

} // namespace haloric
