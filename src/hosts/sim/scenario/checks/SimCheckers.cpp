#include "hosts/sim/scenario/checks/SimCheckers.h"

#include "hosts/sim/scenario/checks/SimOracle.h"
#include "hosts/sim/scenario/checks/SimText.h"
#include "hosts/sim/scenario/session/SimFailure.h"

#include <string>

namespace haloric {

namespace {

void require(bool condition, const char* otherwise)
{
    if (!condition)
        throw SimFailure(otherwise);
}

void requireAtRest(bool condition, const std::string& otherwise)
{
    if (!condition)
        throw SimFailure("at rest, " + otherwise);
}

bool anyVisible(std::span<const std::unique_ptr<OverlayWindow>> windows)
{
    for (const auto& window : windows) {
        if (window->isVisible())
            return true;
    }
    return false;
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

SimCheckers::SimCheckers(SimSession& session)
    : m_session(session),
      m_windowList(session.windowInfoSource, session.screens, session.workspace, SimModel::kOwnProcess)
{
}

void SimCheckers::afterEvent()
{
    checkQueries();
    checkVisibility();
    checkFastPath();
    checkResources();
}

void SimCheckers::afterStep() { checkWindowList(); }

void SimCheckers::checkQueries()
{
    const std::uint64_t queries = m_session.accessibility.queries();
    require(queries - m_queries <= 1, "two Accessibility queries ran in one turn");
    const FocusTracker& tracker = *m_session.tracker();
    if (queries != m_queries)
        require(tracker.isQueryInFlight(), "an Accessibility query ran that the tracker does not know of");
    m_queries = queries;
    // Beside the one query, observations may wait to be released.
    constexpr std::size_t kMostReleases = 3;
    require(m_session.serialQueues.waitingBlocks() <= 1 + kMostReleases, "Accessibility queries pile up");
    require(m_session.accessibility.misplacedCalls() == 0, "a call that may block was made on the main thread");
}

void SimCheckers::checkVisibility()
{
    const OverlayController& overlays = *m_session.overlays();
    const bool somethingMayShow = overlays.state().frame && !overlays.screenshotUIVisible();
    const bool highlight = overlays.highlightWindow().isVisible();
    const bool dims = anyVisible(overlays.dimWindows());
    const bool appDims = anyVisible(overlays.appDimWindows());
    require(somethingMayShow || !highlight, "the highlight is shown without a focused window");
    require(somethingMayShow || !dims, "the screen is dimmed without a focused window");
    require(somethingMayShow || !appDims, "applications are dimmed without a focused window");
    require(!(dims && appDims), "both ways of dimming are shown");
    require(overlays.dimWindows().size() == overlays.appDimWindows().size(), "dimming windows lack a counterpart");
    require(m_session.tracker()->state() == overlays.state(), "the overlay shows another state than the tracker's");
    // Between a change of the screens and its notice, screen space is not what the program believes.
    if (highlight && !m_session.desktop().notifier.screensPending()) {
        const Rect expected = overlays.state().frame->insetBy(-overlays.highlightView().windowRect.x);
        const Rect frame = overlays.highlightWindow().frame();
        require(frame == expected, "the highlight's frame does not surround the published one");
    }
}

void SimCheckers::checkFastPath()
{
    const OverlayWindow& window = m_session.overlays()->highlightWindow();
    const FastPath now{window.transactionMovesAvailable(), window.transactionMovesVerified()};
    require(m_fastPath.available || !now.available, "the fast path came back after it had been given up");
    require(!m_fastPath.verified || now.verified, "a verified fast path became unverified");
    require(m_session.windowServerCalls.outstandingDeliveries() <= 1,
            "more than one delivery of the window server is pending");
    require(m_session.windowServerCalls.openTransactions() == 0, "a transaction was not given back");
    m_fastPath = now;
}

void SimCheckers::checkResources()
{
    // The tracker's poll, the refresh of per-application dimming, the pulse, the screenshot interface's limit.
    constexpr std::size_t kMostTimers = 4;
    require(m_session.desktop().runLoop.armedTimerCount() <= kMostTimers, "timers leak");
    require(m_session.displayLinks.runningLinks() <= 1, "more than one display link runs");
    require(m_session.displayLinks.runningLinks() == 0 || m_session.tracker()->isFastTracking(),
            "a display link runs outside fast tracking");
    require(m_session.windowServerCalls.registrationCount() <= 4, "notification procedures pile up");
}

void SimCheckers::checkWindowList()
{
    const SimModel& model = m_session.desktop().model;
    for (const WindowList::Entry& entry : m_windowList.onScreen()) {
        const SimWindow* window = model.windows.find(entry.id);
        require(window && !window->overlay, "an overlay is listed as an ordinary window");
    }
}

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
        requireAtRest(!m_session.tracker()->isFastTracking(), "fast tracking goes on");
    requireAtRest(m_session.displayLinks.runningLinks() == 0, "a display link runs");
    requireAtRest(!overlays.pulseRunning(), "a pulse goes on");
    std::size_t timers = m_session.tracker()->isRunning() ? 1 : 0;
    timers += overlays.appDimTimerRunning() ? 1 : 0;
    const std::size_t limit = overlays.screenshotUIVisible() ? 1 : 0; // gone after a repeated key
    const std::size_t armed = m_session.desktop().runLoop.armedTimerCount();
    requireAtRest(armed >= timers && armed <= timers + limit,
                  "timers leak: " + std::to_string(armed) + " are armed, " + std::to_string(timers) + " belong");
    requireAtRest(m_session.serialQueues.waitingBlocks() <= 1, "more than one block waits for the Accessibility queue");
}

void SimCheckers::checkContentsAtRest()
{
    const SimModel& model = m_session.desktop().model;
    for (const SimOverlay* window : m_session.desktop().overlays) {
        if (!window->isVisible())
            continue;
        requireAtRest(window->serverWindow().space == model.activeSpace, "an overlay was left behind on another Space");
        requireAtRest(window->shownDrawings() == window->currentDrawings(), "an overlay shows outdated contents");
    }
}

void SimCheckers::checkHighlightAtRest()
{
    const SimModel& model = m_session.desktop().model;
    const OverlayController& overlays = *m_session.overlays();
    const SimOracle oracle(model, m_session.settingsStore().settings());
    const auto expected = oracle.highlightFrame();
    const SimOverlay* window = m_session.desktop().overlay(overlays.highlightWindow().windowNumber());
    if (!expected) {
        requireAtRest(!window->isVisible(), "the highlight is shown although nothing deserves one");
        return;
    }
    requireAtRest(window->isVisible(), "the highlight of " + simText(model.flipped(*expected)) + " is missing");
    const Rect frame = window->serverWindow().frame;
    requireAtRest(simNear(frame, model.flipped(*expected)),
                  "the highlight is at " + simText(frame) + " instead of " + simText(model.flipped(*expected)));
    const double margin = oracle.margin();
    const Rect inner{margin, margin, expected->width - 2 * margin, expected->height - 2 * margin};
    requireAtRest(simNear(overlays.highlightView().windowRect, inner), "the highlight surrounds the wrong rectangle");
    for (const SimOverlay* other : m_session.desktop().overlays) {
        if (other != window && other->isVisible())
            requireAtRest(depth(model, window->windowNumber()) < depth(model, other->windowNumber()),
                          "a dimming window lies above the highlight");
    }
}

void SimCheckers::checkDimAtRest()
{
    const SimModel& model = m_session.desktop().model;
    const Settings& settings = m_session.settingsStore().settings();
    const OverlayController& overlays = *m_session.overlays();
    const auto focused = SimOracle(model, settings).focusedFrame();
    requireAtRest(overlays.dimWindows().size() == model.screens.size(), "dimming windows do not match the screens");
    const bool expected = focused && settings.dimEnabled && settings.dimScope == DimScope::allWindows;
    for (std::size_t i = 0; i < model.screens.size(); ++i) {
        const OverlayWindow& window = *overlays.dimWindows()[i];
        requireAtRest(window.isVisible() == expected, expected ? "a screen is not dimmed" : "a screen is dimmed");
        if (!expected)
            continue;
        const Rect screen = model.flipped(model.screens[i].frame);
        requireAtRest(window.frame() == screen, "a dimming window does not cover its screen");
        const auto& hole = overlays.dimViews()[i]->holeRect;
        requireAtRest(hole && simNear(*hole, focused->translatedBy(-screen.x, -screen.y)),
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
    requireAtRest(overlays.appDimTimerRunning() == expected,
                  "the refresh of per-application dimming is in the wrong state");
    for (std::size_t i = 0; i < model.screens.size(); ++i) {
        const OverlayWindow& window = *overlays.appDimWindows()[i];
        requireAtRest(window.isVisible() == expected,
                      expected ? "applications are not dimmed" : "applications are dimmed");
        if (!expected)
            continue;
        requireAtRest(window.frame() == model.flipped(model.screens[i].frame),
                      "a dimming window does not cover its screen");
        requireAtRest(overlays.appDimViews()[i]->windows == oracle.appDimWindows(model.screens[i]),
                      "per-application dimming paints other windows than those on screen");
    }
}

} // namespace haloric
