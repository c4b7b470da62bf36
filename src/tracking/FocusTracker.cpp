#include "tracking/FocusTracker.h"

#include "platform/AccessibilityNames.h"
#include "platform/Application.h"
#include "platform/RunLoop.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "windowserver/SharedWindowServer.h"

#include <cmath>
#include <utility>

namespace haloric {

namespace {

constexpr Seconds kPollTolerance{0.075};

constexpr double kSmallestSide = 1; // points; smaller windows are invisible helpers
constexpr double kSmallestOwnTitleBar = 1;

constexpr EventMask kMousePresses =
    maskOf(EventType::leftMouseDown) | maskOf(EventType::rightMouseDown) | maskOf(EventType::otherMouseDown);
constexpr EventMask kMouseReleases =
    maskOf(EventType::leftMouseUp) | maskOf(EventType::rightMouseUp) | maskOf(EventType::otherMouseUp);

FocusState::TitleBar ownTitleBar(double height)
{
    if (!std::isfinite(height))
        return FocusState::TitleBar::unknown();
    return height > kSmallestOwnTitleBar ? FocusState::TitleBar::height(height) : FocusState::TitleBar::none();
}

} // namespace

FocusTracker::FocusTracker(const FocusTrackerDependencies& platform)
    : m_platform(platform),
      m_queries(platform.serialQueues, platform.runLoop, platform.accessibility),
      m_frames(platform.windowServer, platform.windowInfo, platform.screens),
      m_fastTracking(platform.runLoop, platform.screens, platform.displayLinks, platform.videoLinks, platform.input)
{
}

FocusTracker::~FocusTracker() { stop(); }

void FocusTracker::start()
{
    if (m_running)
        return;
    m_running = true;
    ++m_generation;
    observeSystem();
    frontmostChanged();
}

void FocusTracker::stop()
{
    if (!m_running)
        return;
    m_running = false;
    ++m_generation;
    m_refreshPending = false;
    m_pulse.clear();
    setCurrentWindowID(WindowNumber::none);
    m_targetPID = ProcessID::none;
    m_pollTimer.reset();
    m_fastTracking.stop();
    m_mouseMonitor.reset();
    m_localMouseMonitor.reset();
    m_tokens.clear();
    detachObserver();
    m_queries.resetWorker();
}

void FocusTracker::frontmostChanged()
{
    if (!m_running)
        return;
    ++m_generation;
    setCurrentWindowID(WindowNumber::none);
    m_pulse.pulseOnNextFocus();
    publish(FocusState::blank()); // the highlight leaves the old window at once
    refresh(Force::yes);
    startFastTracking();
}

void FocusTracker::refresh(Force /*force*/)
{
    if (!m_running)
        return;
    const auto frontmost = m_platform.workspace.frontmostApplication();
    if (!m_platform.accessibility.isProcessTrusted() || !frontmost || frontmost->hidden) {
        if (m_targetPID != ProcessID::none) {
            ++m_generation;
            m_targetPID = ProcessID::none;
            detachObserver();
        }
        setCurrentWindowID(WindowNumber::none);
        publish(FocusState::blank());
        return;
    }
    const ProcessID pid = frontmost->pid;
    if (pid != m_targetPID) {
        ++m_generation;
        setCurrentWindowID(WindowNumber::none);
        m_targetPID = pid;
        detachObserver();
        publish(FocusState::cleared(pid));
        if (!m_running) // its listener may have stopped the tracker
            return;
    }
    if (pid == m_platform.application.processID()) {
        refreshOwnWindow(pid);
        return;
    }
    if (m_queryInFlight)
        m_refreshPending = true;
    else
        submitQuery(pid);
}

void FocusTracker::submitQuery(ProcessID pid)
{
    m_queryInFlight = true;
    m_refreshPending = false;
    m_queries.submit({pid, m_titleBarRevision, m_observation.get()},
                     m_anchor.bind(&FocusTracker::apply, m_generation, pid),
                     m_anchor.bind(&FocusTracker::finishQuery, m_generation, pid));
}

bool FocusTracker::isCurrent(std::uint64_t generation, ProcessID pid) const
{
    return m_running && generation == m_generation && pid == m_targetPID;
}

void FocusTracker::finishQuery(std::uint64_t generation, ProcessID pid, std::unique_ptr<AXObservation> made)
{
    m_queryInFlight = false;
    if (made && isCurrent(generation, pid) && !m_observation)
        install(std::move(made));
    else if (made)
        m_queries.release(std::move(made));
    if (m_running && m_refreshPending)
        refresh(Force::yes);
}

void FocusTracker::install(std::unique_ptr<AXObservation> observation)
{
    m_observation = std::move(observation);
    // The address only identifies the observation.
    m_observation->onNotification = m_anchor.bind(&FocusTracker::handleAX, m_observation.get());
    m_observation->addToMainRunLoop();
}

void FocusTracker::detachObserver()
{
    if (!m_observation)
        return;
    m_observation->removeFromMainRunLoop();
    m_queries.release(std::move(m_observation));
}

void FocusTracker::publish(const FocusState& state)
{
    if (state == m_state)
        return;
    if (state.frame != m_state.frame)
        m_fastTracking.noteMovement();
    m_state = state;
    if (const auto handler = onChange) // a copy, because the handler may replace itself
        handler(m_state);
}

void FocusTracker::forgetWindow(ProcessID pid)
{
    setCurrentWindowID(WindowNumber::none);
    publish(FocusState::cleared(pid));
}

void FocusTracker::setCurrentWindowID(WindowNumber windowID)
{
    if (windowID == m_currentWindowID)
        return;
    m_currentWindowID = windowID;
    WindowServer& server = m_platform.windowServer.get();
    if (windowID == WindowNumber::none)
        server.observe(windowID, {});
    else // without notifications the tick still follows the window
        server.observe(windowID, m_anchor.bind(&FocusTracker::handleWindowServer));
}

// Results of queries.

void FocusTracker::apply(std::uint64_t generation, ProcessID pid, const AXFocusWorker::QueryResult& result)
{
    if (!isCurrent(generation, pid))
        return;
    const auto frontmost = m_platform.workspace.frontmostApplication();
    if (!frontmost || frontmost->pid != pid || frontmost->hidden) {
        refresh(Force::yes);
        return;
    }
    if (const auto* snapshot = std::get_if<AXFocusWorker::Snapshot>(&result))
        applyFocused(*snapshot, pid);
    else if (std::holds_alternative<AXFocusWorker::NoWindow>(result))
        forgetWindow(pid);
    else if (m_currentWindowID == WindowNumber::none)
        publish(FocusState::cleared(pid)); // no answer in time, and no window is watched
}

void FocusTracker::applyFocused(const AXFocusWorker::Snapshot& snapshot, ProcessID pid)
{
    const auto frame = frameOf(snapshot, pid);
    if (!frame || frame->width <= kSmallestSide || frame->height <= kSmallestSide) {
        forgetWindow(pid);
        return;
    }
    const bool sameFrame = m_state.frame == frame;
    setCurrentWindowID(snapshot.windowID);
    publish({frame, pid, snapshot.identity, snapshot.titleBar});
    if (!sameFrame)
        startFastTracking();
    pulseAfterFocus(snapshot.identity);
}

std::optional<Rect> FocusTracker::frameOf(const AXFocusWorker::Snapshot& snapshot, ProcessID pid) const
{
    if (snapshot.windowID != WindowNumber::none)
        return m_frames.ordinaryWindowFrame(snapshot.windowID, pid);
    return snapshot.axBounds ? m_frames.frame(*snapshot.axBounds) : std::nullopt;
}

// Accessibility cannot be used for this process: its answer needs the main thread, which would wait for it.
void FocusTracker::refreshOwnWindow(ProcessID pid)
{
    setCurrentWindowID(WindowNumber::none);
    auto window = m_platform.application.keyWindow();
    if (!window)
        window = m_platform.application.mainWindow();
    if (!window || window->overlay || !window->visible || !isFinite(window->frame)) {
        publish(FocusState::cleared(pid));
        return;
    }
    const double height = window->frame.height - window->contentLayoutHeight;
    const auto titleBar = ownTitleBar(height);
    const auto identity = static_cast<WindowIdentity>(window->number);
    publish({window->frame, pid, identity, titleBar});
    pulseAfterFocus(identity);
}

void FocusTracker::pulseAfterFocus(WindowIdentity identity)
{
    if (!m_pulse.focused(identity))
        return;
    if (const auto handler = onPulse)
        handler();
}

// Events.

void FocusTracker::observeSystem()
{
    for (const auto notification :
         {WorkspaceNotification::didActivateApplication, WorkspaceNotification::activeSpaceDidChange,
          WorkspaceNotification::didTerminateApplication})
        m_tokens.push_back(m_platform.workspace.observe(notification, m_anchor.bind(&FocusTracker::frontmostChanged)));
    m_tokens.push_back(m_platform.screens.onParametersChange(m_anchor.bind(&FocusTracker::screenParametersChanged)));

    m_pollTimer = m_platform.runLoop.scheduleRepeating(kPollInterval, kPollTolerance,
                                                       m_anchor.bind(&FocusTracker::refresh, Force::no));

    const auto onMouse = m_anchor.bind(&FocusTracker::handleMouse);
    m_mouseMonitor = m_platform.input.addGlobalMouseMonitor(kMousePresses | kMouseReleases, onMouse);
    m_localMouseMonitor = m_platform.input.addLocalMouseMonitor(kMousePresses | kMouseReleases, onMouse);
}

void FocusTracker::screenParametersChanged()
{
    if (!m_running)
        return;
    ++m_generation;
    updateTrackingScreen(Force::yes);
    refresh(Force::yes);
}

void FocusTracker::handleMouse(EventType event)
{
    if (!m_running)
        return;
    if ((maskOf(event) & kMousePresses) != 0) {
        startFastTracking();
        m_fastTracking.notePress();
    } else if (m_platform.input.pressedMouseButtons() == 0) {
        startFastTracking();
        m_fastTracking.noteRelease();
        refresh(Force::yes);
    }
}

void FocusTracker::handleAX(const AXObservation* observation, std::string_view notification)
{
    if (!m_running || m_observation.get() != observation)
        return;
    const bool resized = notification == AXNotifications::kWindowResized;
    if (resized)
        ++m_titleBarRevision;
    if (notification == AXNotifications::kFocusedWindowChanged || notification == AXNotifications::kMainWindowChanged) {
        m_pulse.focusChangeBegan(m_state.windowID);
        ++m_generation;
        setCurrentWindowID(WindowNumber::none);
    }
    if (resized || notification == AXNotifications::kWindowMoved)
        startFastTracking();
    refresh(Force::yes); // last, because it may detach the observation
}

void FocusTracker::handleWindowServer(WindowNumber windowID, WindowServerChanges changes)
{
    if (!m_running || windowID != m_currentWindowID || !m_state.frame)
        return;
    if (changes.contains(WindowServerChanges::other)) {
        ++m_generation;
        forgetWindow(m_state.pid);
        refresh(Force::yes);
        return;
    }
    if (changes.contains(WindowServerChanges::resized))
        ++m_titleBarRevision;
    if (followWindow())
        startFastTracking();
}

bool FocusTracker::followWindow()
{
    const auto frame = m_frames.cgFrame(m_currentWindowID);
    if (!frame) {
        forgetWindow(m_state.pid);
        refresh(Force::yes);
        return false;
    }
    publish({frame, m_state.pid, identityOf(m_currentWindowID), m_state.titleBar});
    updateTrackingScreen(Force::no);
    return true;
}

void FocusTracker::startFastTracking()
{
    if (!m_running || m_fastTracking.isActive())
        return;
    m_fastTracking.start(m_anchor.bind(&FocusTracker::fastTick), m_state.frame.value_or(Rect{}));
}

// Runs up to 120 times a second; no allocation while the window rests.
void FocusTracker::fastTick()
{
    if (!m_running)
        return;
    if (m_currentWindowID != WindowNumber::none && m_state.frame)
        followWindow();
    else if (m_targetPID == m_platform.application.processID())
        refreshOwnWindow(m_targetPID);

    const auto settling = m_fastTracking.settle();
    if (settling == FastTracking::Settling::settled)
        m_fastTracking.stop();
    if (settling == FastTracking::Settling::settled || settling == FastTracking::Settling::released)
        refresh(Force::yes);
}

void FocusTracker::updateTrackingScreen(Force force)
{
    const auto resync = force == Force::yes ? FastTracking::Resync::always : FastTracking::Resync::ifScreenChanged;
    m_fastTracking.updateTrackingScreen(m_state.frame.value_or(Rect{}), resync);
}

} // namespace haloric
