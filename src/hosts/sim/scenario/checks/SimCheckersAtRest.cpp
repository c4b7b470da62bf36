// What must have come about once nothing has happened for a while.
#include "hosts/sim/scenario/checks/SimCheckers.h"

#include "hosts/sim/scenario/SimFailure.h"
#include "hosts/sim/scenario/checks/SimOracle.h"
#include "hosts/sim/scenario/checks/SimText.h"

namespace haloric {

namespace {

void require(bool condition, const std::string& otherwise)
{
    if (!condition)
        throw SimFailure("at rest, " + otherwise);
}

std::size_t depth(const SimModel& model, std::int64_t number)
{
    std::size_t index = 0;
    for (const auto& window : model.windows.frontToBack()) {
        if (static_cast<std::int64_t>(window->number) == number)
            break;
        ++index;
    }
    return index;
}

} // namespace

void SimCheckers::atRest()
{
    checkQuietAtRest();
    checkContentsAtRest();
    const SimOracle oracle(m_session.desktop().model, m_session.settingsStore().settings());
    if (!oracle.canTell() || m_session.overlays()->screenshotUIVisible())
        return;
    checkHighlightAtRest();
    checkDimAtRest();
    checkAppDimAtRest();
}

void SimCheckers::checkQuietAtRest()
{
    const OverlayController& overlays = *m_session.overlays();
    const SimDesktop& desktop = m_session.desktop();
    const bool linksFail = desktop.systemVersion < 14 && desktop.faults.videoLinksFail;
    // Without a display link nothing ticks, and so nothing notices that the window has settled.
    if (!linksFail && !desktop.model.screens.empty())
        require(!m_session.tracker()->isFastTracking(), "fast tracking goes on");
    require(m_session.displayLinks.runningLinks() == 0, "a display link runs");
    require(!overlays.pulseRunning(), "a pulse goes on");
    std::size_t timers = m_session.tracker()->isRunning() ? 1 : 0;
    timers += overlays.appDimTimerRunning() ? 1 : 0;
    const std::size_t limit = overlays.screenshotUIVisible() ? 1 : 0; // gone after a repeated key
    const std::size_t armed = m_session.desktop().runLoop.armedTimerCount();
    require(armed >= timers && armed <= timers + limit,
            "timers leak: " + std::to_string(armed) + " are armed, " + std::to_string(timers) + " belong");
    require(m_session.serialQueues.waitingBlocks() <= 1, "more than one block waits for the Accessibility queue");
}

void SimCheckers::checkContentsAtRest()
{
    const SimModel& model = m_session.desktop().model;
    for (const SimToolkitWindow* window : m_session.toolkitWindows.all()) {
        if (!window->isVisible())
            continue;
        require(window->serverWindow().space == model.activeSpace, "an overlay was left behind on another Space");
        require(window->shownDrawings() == window->currentDrawings(), "an overlay shows outdated contents");
    }
}

void SimCheckers::checkHighlightAtRest()
{
    const SimModel& model = m_session.desktop().model;
    const OverlayController& overlays = *m_session.overlays();
    const SimOracle oracle(model, m_session.settingsStore().settings());
    const auto expected = oracle.highlightFrame();
    const SimToolkitWindow* window = m_session.toolkitWindow(overlays.highlightWindow().windowNumber());
    if (!expected) {
        require(!window->isVisible(), "the highlight is shown although nothing deserves one");
        return;
    }
    require(window->isVisible(), "the highlight of " + simText(model.flipped(*expected)) + " is missing");
    const Rect frame = window->serverWindow().frame;
    require(simNear(frame, model.flipped(*expected)),
            "the highlight is at " + simText(frame) + " instead of " + simText(model.flipped(*expected)));
    const double margin = oracle.margin();
    const Rect inner{margin, margin, expected->width - 2 * margin, expected->height - 2 * margin};
    require(simNear(overlays.highlightView().windowRect, inner), "the highlight surrounds the wrong rectangle");
    for (const SimToolkitWindow* other : m_session.toolkitWindows.all()) {
        if (other != window && other->isVisible())
            require(depth(model, window->windowNumber()) < depth(model, other->windowNumber()),
                    "a dimming window lies above the highlight");
    }
}

void SimCheckers::checkDimAtRest()
{
    const SimModel& model = m_session.desktop().model;
    const Settings& settings = m_session.settingsStore().settings();
    const OverlayController& overlays = *m_session.overlays();
    const auto focused = SimOracle(model, settings).focusedFrame();
    require(overlays.dimWindows().size() == model.screens.size(), "dimming windows do not match the screens");
    const bool expected = focused && settings.dimEnabled && settings.dimScope == DimScope::allWindows;
    for (std::size_t i = 0; i < model.screens.size(); ++i) {
        const OverlayWindow& window = *overlays.dimWindows()[i];
        require(window.isVisible() == expected, expected ? "a screen is not dimmed" : "a screen is dimmed");
        if (!expected)
            continue;
        const Rect screen = model.flipped(model.screens[i].frame);
        require(window.frame() == screen, "a dimming window does not cover its screen");
        const auto& hole = overlays.dimViews()[i]->holeRect;
        require(hole && simNear(*hole, focused->translatedBy(-screen.x, -screen.y)),
                "the hole in the dimming is not where the focused window is");
    }
}

void SimCheckers::checkAppDimAtRest()
{
    const SimModel& model = m_session.desktop().model;
    const Settings& settings = m_session.settingsStore().settings();
    const OverlayController& overlays = *m_session.overlays();
    const SimOracle oracle(model, settings);
    const bool expected = oracle.focusedFrame() && settings.dimEnabled && settings.dimScope == DimScope::selectedApps;
    require(overlays.appDimTimerRunning() == expected, "the refresh of per-application dimming is in the wrong state");
    for (std::size_t i = 0; i < model.screens.size(); ++i) {
        const OverlayWindow& window = *overlays.appDimWindows()[i];
        require(window.isVisible() == expected, expected ? "applications are not dimmed" : "applications are dimmed");
        if (!expected)
            continue;
        require(window.frame() == model.flipped(model.screens[i].frame), "a dimming window does not cover its screen");
        require(overlays.appDimViews()[i]->windows == oracle.appDimWindows(model.screens[i]),
                "per-application dimming paints other windows than those on screen");
    }
}

} // namespace haloric
