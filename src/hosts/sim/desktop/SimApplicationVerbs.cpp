#include "hosts/sim/desktop/SimApplicationVerbs.h"

#include "platform/AccessibilityNames.h"

#include <algorithm>
#include <utility>

namespace haloric {

SimApp& SimApplicationVerbs::launch(std::string name, std::optional<std::string> bundleID)
{
    auto app = std::make_unique<SimApp>();
    app->pid = static_cast<ProcessID>(++m_lastPID);
    app->name = std::move(name);
    app->bundleID = std::move(bundleID);
    SimApp& launched = *app;
    m_model.apps.push_back(std::move(app));
    m_focus.setFrontmost(&launched);
    return launched;
}

void SimApplicationVerbs::quit(SimApp& app)
{
    if (app.pid == SimModel::kOwnProcess)
        return;
    const ProcessID pid = app.pid;
    while (true) {
        const auto& all = m_model.windows.frontToBack();
        const auto own = std::ranges::find_if(all, [&](const auto& window) { return window->owner == pid; });
        if (own == all.end())
            break;
        m_windows.close(**own);
    }
    std::erase_if(m_model.apps, [&](const auto& other) { return other->pid == pid; });
    m_notifier.postWorkspace(WorkspaceNotification::didTerminateApplication);
    m_focus.settle();
}

void SimApplicationVerbs::activate(SimApp& app)
{
    show(app);
    if (SimWindow* window = m_model.windows.find(app.focused)) {
        m_windows.focus(*window);
        return;
    }
    const auto& all = m_model.windows.frontToBack();
    const auto elsewhere = std::ranges::find_if(
        all, [&](const auto& window) { return window->owner == app.pid && !window->overlay && !window->minimised; });
    if (elsewhere != all.end())
        m_windows.focus(**elsewhere);
    else
        m_focus.setFrontmost(&app);
}

void SimApplicationVerbs::hide(SimApp& app)
{
    if (std::exchange(app.hidden, true))
        return;
    m_notifier.postAccessibility(app.pid, AXNotifications::kApplicationHidden);
    m_focus.settle();
    m_notifier.postVanished();
}

void SimApplicationVerbs::show(SimApp& app)
{
    if (!std::exchange(app.hidden, false))
        return;
    m_notifier.postAccessibility(app.pid, AXNotifications::kApplicationShown);
    m_focus.settle();
    m_notifier.postVanished();
}

void SimApplicationVerbs::setResponsive(SimApp& app, bool responsive)
{
    app.responsive = responsive;
    if (responsive)
        m_notifier.releaseHeld(app);
}

} // namespace haloric
