#include "hosts/sim/desktop/SimModel.h"

#include "foundation/ProductIdentity.h"

#include <algorithm>

namespace haloric {

SimModel::SimModel()
{
    apps.push_back(std::make_unique<SimApp>());
    apps.front()->pid = kOwnProcess;
    apps.front()->name = "Haloric";
    apps.front()->bundleID = ProductIdentity::kIdentifier;
}

SimApp* SimModel::app(ProcessID pid) const
{
    const auto found = std::ranges::find_if(apps, [&](const auto& app) { return app->pid == pid; });
    return found == apps.end() ? nullptr : found->get();
}

SimApp* SimModel::appNamed(std::string_view name) const
{
    const auto found = std::ranges::find_if(apps, [&](const auto& app) { return app->name == name; });
    return found == apps.end() ? nullptr : found->get();
}

bool SimModel::isOnScreen(const SimWindow& window) const
{
    if (!window.orderedIn || window.minimised || window.space != activeSpace)
        return false;
    const SimApp* owner = app(window.owner);
    return owner && !owner->hidden;
}

bool SimModel::isFocusable(const SimWindow& window) const { return !window.overlay && isOnScreen(window); }

SimWindow* SimModel::topFocusable(ProcessID owner) const
{
    for (const auto& window : windows.frontToBack()) {
        if (window->owner == owner && isFocusable(*window))
            return window.get();
    }
    return nullptr;
}

Rect SimModel::flipped(const Rect& rect) const
{
    return flippedVertically(rect, screens.empty() ? 0 : screens.front().frame.height);
}

std::vector<WindowNumber> SimModel::takeVanished()
{
    std::vector<WindowNumber> vanished;
    for (const auto& window : windows.frontToBack()) {
        const bool onScreen = isOnScreen(*window);
        if (window->lastSeenOnScreen && !onScreen && !window->overlay)
            vanished.push_back(window->number);
        window->lastSeenOnScreen = onScreen;
    }
    return vanished;
}

} // namespace haloric
