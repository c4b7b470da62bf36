#include "hosts/sim/scenario/checks/SimCheckers.h"

#include "hosts/sim/scenario/SimFailure.h"

#include <string>

namespace haloric {

namespace {

void require(bool condition, const char* otherwise)
{
    if (!condition)
        throw SimFailure(otherwise);
}

bool anyVisible(std::span<const std::unique_ptr<OverlayWindow>> windows)
{
    for (const auto& window : windows) {
        if (window->isVisible())
            return true;
    }
    return false;
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
    require(m_session.windowServerLibrary.outstandingDeliveries() <= 1,
            "more than one delivery of the window server is pending");
    require(m_session.windowServerLibrary.openTransactions() == 0, "a transaction was not given back");
    require(m_session.windowServerLibrary.watchedWindows().size() <= 1, "more than one window is watched");
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
    require(m_session.windowServerLibrary.registrationCount() <= 4, "notification procedures pile up");
}

void SimCheckers::checkWindowList()
{
    const SimModel& model = m_session.desktop().model;
    for (const WindowList::Entry& entry : m_windowList.onScreen()) {
        const SimWindow* window = model.windows.find(entry.id);
        require(window && !window->overlay, "an overlay is listed as an ordinary window");
    }
}

} // namespace haloric
