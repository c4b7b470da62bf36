#include "tracking/FocusTracker.h"

#include "platform/Application.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "windowserver/SharedWindowServer.h"

#include <utility>

namespace haloric {

FocusTracker::FocusTracker(const FocusTrackerDependencies& platform)
    : m_platform(platform),
      m_queries(platform.serialQueues, platform.runLoop, platform.accessibility),
      m_frames(platform.windowServer, platform.windowInfo, platform.screens),
      m_fastTracking(platform.runLoop, platform.screens, platform.displayLinks, platform.input)
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
    stopFastTracking();
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
    const auto observe = m_observation ? AXQueries::Observe::no : AXQueries::Observe::yes;
    const auto generation = m_generation;
    m_queries.submit(
        {pid, m_titleBarRevision, observe},
        [self = m_anchor.ref(), generation, pid](const AXFocusWorker::QueryResult& result) {
            FocusTracker* tracker = self.get();
            if (tracker && tracker->isCurrent(generation, pid))
                tracker->apply(result, pid);
        },
        [self = m_anchor.ref(), generation, pid](std::unique_ptr<AXObservation> made) {
            if (FocusTracker* tracker = self.get())
                tracker->finishQuery(generation, pid, std::move(made));
        });
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
    // The observation's address serves as its name only.
    m_observation->onNotification = [self = m_anchor.ref(), observation = m_observation.get()](auto notification) {
        if (FocusTracker* tracker = self.get())
            tracker->handleAX(notification, observation);
    };
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
    if (onChange)
        onChange(m_state);
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
    if (windowID == WindowNumber::none) {
        m_platform.windowServer.get().observe(windowID, {});
        return;
    }
    // Without notifications the tick follows the window all the same.
    m_platform.windowServer.get().observe(windowID, [self = m_anchor.ref()](WindowNumber changed, auto changes) {
        if (FocusTracker* tracker = self.get())
            tracker->handleWindowServer(changed, changes);
    });
}

} // namespace haloric
