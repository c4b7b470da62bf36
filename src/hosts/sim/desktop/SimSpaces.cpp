#include "hosts/sim/desktop/SimSpaces.h"

#include <algorithm>

namespace haloric {

void SimSpaces::switchTo(SimSpaceID space, SimWindow* dragged)
{
    if (space == m_model.activeSpace)
        return;
    if (dragged)
        dragged->space = space;
    m_model.activeSpace = space;
    m_notifier.postWorkspace(WorkspaceNotification::activeSpaceDidChange);
    m_focus.settle();
    m_focus.followFrontWindow();
    m_notifier.postVanished();
}

void SimSpaces::sendWindow(SimWindow& window, SimSpaceID space)
{
    window.space = space;
    m_focus.settle();
    m_notifier.postVanished();
}

bool SimSpaces::exists(SimSpaceID space) const
{
    if (space >= 1 && space <= m_model.ordinarySpaces)
        return true;
    return std::ranges::any_of(m_model.windows.frontToBack(),
                               [&](const auto& window) { return window->fullScreenOrigin && window->space == space; });
}

} // namespace haloric
