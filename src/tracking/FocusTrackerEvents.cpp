// What the tracker hears: the system's notifications, the mouse, the application, the window server, display frames.
#include "tracking/FocusTracker.h"

#include "platform/Application.h"
#include "platform/RunLoop.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"

namespace haloric {

namespace {

constexpr Seconds kPollTolerance{0.075};

constexpr EventMask kMousePresses =
    maskOf(EventType::leftMouseDown) | maskOf(EventType::rightMouseDown) | maskOf(EventType::otherMouseDown);
constexpr EventMask kMouseReleases =
    maskOf(EventType::leftMouseUp) | maskOf(EventType::rightMouseUp) | maskOf(EventType::otherMouseUp);

} // namespace

void FocusTracker::observeSystem()
{
    // A callback that calls `method` while the tracker lives.
    const auto calling = [self = m_anchor.ref()](auto method) -> Task {
        return [self, method] {
            if (FocusTracker* tracker = self.get())
                (tracker->*method)();
        };
    };
    for (const auto notification :
         {WorkspaceNotification::didActivateApplication, WorkspaceNotification::activeSpaceDidChange,
          WorkspaceNotification::didTerminateApplication})
        m_tokens.push_back(m_platform.workspace.observe(notification, calling(&FocusTracker::frontmostChanged)));
    m_tokens.push_back(m_platform.screens.onParametersChange(calling(&FocusTracker::screenParametersChanged)));

    m_pollTimer = m_platform.runLoop.scheduleRepeating(kPollInterval, kPollTolerance, [self = m_anchor.ref()] {
        if (FocusTracker* tracker = self.get())
            tracker->refresh(Force::no);
    });

    const auto onMouse = [self = m_anchor.ref()](EventType event) {
        if (FocusTracker* tracker = self.get())
            tracker->handleMouse(event);
    };
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

void FocusTracker::handleAX(std::string_view notification, const AXObservation* observation)
{
    if (!m_running || m_observation.get() != observation)
        return;
    const bool resized = notification == "AXWindowResized";
    if (resized)
        ++m_titleBarRevision;
    if (notification == "AXFocusedWindowChanged" || notification == "AXMainWindowChanged") {
        m_pulse.focusChangeBegan(m_state.windowID);
        ++m_generation;
        setCurrentWindowID(WindowNumber::none);
    }
    if (resized || notification == "AXWindowMoved")
        startFastTracking();
    refresh(Force::yes); // last: it may detach the observation
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
    const auto tick = [self = m_anchor.ref()] {
        if (FocusTracker* tracker = self.get())
            tracker->fastTick();
    };
    m_fastTracking.start(tick, m_state.frame.value_or(Rect{}));
}

void FocusTracker::stopFastTracking() { m_fastTracking.stop(); }

// Runs up to 120 times a second: it allocates nothing while the window rests.
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
        stopFastTracking();
    if (settling == FastTracking::Settling::settled || settling == FastTracking::Settling::released)
        refresh(Force::yes);
}

void FocusTracker::updateTrackingScreen(Force force)
{
    const auto resync = force == Force::yes ? FastTracking::Resync::always : FastTracking::Resync::ifScreenChanged;
    m_fastTracking.updateTrackingScreen(m_state.frame.value_or(Rect{}), resync);
}

} // namespace haloric
