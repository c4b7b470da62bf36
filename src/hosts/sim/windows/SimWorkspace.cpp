#include "hosts/sim/windows/SimWorkspace.h"

namespace haloric {

std::optional<FrontmostApplication> SimWorkspace::frontmostApplication() const
{
    const SimApp* app = m_desktop.model.frontmostApp();
    if (!app)
        return std::nullopt;
    return FrontmostApplication{app->pid, app->hidden};
}

std::optional<std::string> SimWorkspace::bundleIdentifier(ProcessID pid) const
{
    const SimApp* app = m_desktop.model.app(pid);
    return app ? app->bundleID : std::nullopt;
}

Subscription SimWorkspace::observe(WorkspaceNotification notification, Task handler)
{
    return m_desktop.notifier.workspace.subscribe(
        [notification, handler = std::move(handler)](WorkspaceNotification posted) {
            if (posted == notification)
                handler();
        });
}

void SimWorkspace::openURL(std::string_view url) { m_desktop.journal.note(SimJournal::Kind::url, url); }

} // namespace haloric
