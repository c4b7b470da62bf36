#include "hosts/sim/scenario/checks/SimOracle.h"

#include "platform/AccessibilityNames.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

bool isLargeEnough(const Rect& frame) { return frame.width > 1 && frame.height > 1; }

} // namespace

bool SimOracle::canTell() const
{
    if (m_model.screens.empty())
        return false;
    const SimApp* app = m_model.frontmostApp();
    return !app || app->responsive || !m_model.trusted || app->pid == SimModel::kOwnProcess;
}

const SimWindow* SimOracle::focusedWindow() const
{
    const SimApp* app = m_model.frontmostApp();
    if (!m_model.trusted || !app || app->hidden)
        return nullptr;
    const SimWindow* window = m_model.windows.find(app->focused);
    if (!window || window->minimised)
        return nullptr;
    if (app->pid == SimModel::kOwnProcess)
        return m_model.isOnScreen(*window) ? window : nullptr;
    // Panels are recognised by their layer, which takes a window number to look up.
    const bool ordinary = window->numberUntold || window->layer == 0;
    return ordinary && window->role == AXRoles::kWindow && isLargeEnough(window->frame) ? window : nullptr;
}

std::optional<Rect> SimOracle::focusedFrame() const
{
    const SimWindow* window = focusedWindow();
    return window ? std::optional(m_model.flipped(window->frame)) : std::nullopt;
}

std::optional<Rect> SimOracle::highlightFrame() const
{
    const auto frame = focusedFrame();
    const bool anything =
        m_settings.borderEnabled || m_settings.glowEnabled || m_settings.tintEnabled || m_settings.pulseEnabled;
    if (!frame || !anything)
        return std::nullopt;
    const bool fullScreen = std::ranges::any_of(
        m_model.screens, [&](const SimScreen& screen) { return m_model.flipped(screen.frame) == *frame; });
    if (fullScreen && m_settings.hideWhenFullScreen)
        return std::nullopt;
    return frame->insetBy(-margin());
}

double SimOracle::margin() const
{
    double margin = 2;
    if (m_settings.glowEnabled)
        margin = std::max(margin, 2 * m_settings.glowRadius + 4);
    if (m_settings.pulseEnabled)
        margin = std::max(margin, 32.0);
    return margin;
}

bool SimOracle::isFocused(const SimWindow& window, const Rect& focused) const
{
    const SimWindow* focusedWindow = this->focusedWindow();
    if (&window == focusedWindow && !window.numberUntold)
        return true;
    const Rect frame = m_model.flipped(window.frame);
    const auto near = [](double a, double b) { return std::abs(a - b) < 2; };
    return focusedWindow && window.owner == focusedWindow->owner && near(frame.x, focused.x) &&
           near(frame.y, focused.y) && near(frame.width, focused.width) && near(frame.height, focused.height);
}

std::vector<AppDimView::Window> SimOracle::appDimWindows(const SimScreen& screen) const
{
    const auto focused = focusedFrame();
    if (!focused)
        return {};
    const Point origin = m_model.flipped(screen.frame).origin();
    const Rect clear = focused->translatedBy(-origin.x, -origin.y);
    std::vector<AppDimView::Window> items;
    const auto& windows = m_model.windows.frontToBack();
    for (auto i = windows.rbegin(); i != windows.rend(); ++i) {
        const SimWindow& window = **i;
        if (window.layer != 0 || window.owner == SimModel::kOwnProcess || window.alpha <= 0 ||
            !m_model.isOnScreen(window) || !isLargeEnough(window.frame))
            continue;
        if (isFocused(window, *focused)) {
            items.push_back({clear, false});
            continue;
        }
        const auto& bundleID = m_model.app(window.owner)->bundleID;
        const bool dim = bundleID && std::ranges::count(m_settings.dimApps, *bundleID) > 0;
        items.push_back({m_model.flipped(window.frame).translatedBy(-origin.x, -origin.y), dim});
    }
    items.push_back({clear, false});
    return items;
}

} // namespace haloric
