// Tracks which window of the frontmost application has focus and where it is on screen. Main thread; Accessibility
// queries run on a serial queue, and a late result is recognised by `generation` and dropped.
//
// Slow mode polls and listens to notifications. Fast mode, while a window is dragged or settles, also reads the frame
// once a display frame. Callbacks may stop the tracker, but not destroy it.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/WeakAnchor.h"
#include "platform/InputMonitors.h"
#include "tracking/AXQueries.h"
#include "tracking/FastTracking.h"
#include "tracking/FocusFrames.h"
#include "tracking/FocusPulse.h"
#include "tracking/FocusState.h"
#include "tracking/FocusTrackerDependencies.h"
#include "windowserver/WindowServerChanges.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace haloric {

class FocusTracker {
public:
    static constexpr Seconds kPollInterval{0.15};

    explicit FocusTracker(const FocusTrackerDependencies& platform); // starts nothing
    ~FocusTracker();                                                 // stops
    FocusTracker(const FocusTracker&) = delete;
    FocusTracker& operator=(const FocusTracker&) = delete;

    std::function<void(const FocusState&)> onChange; // every published state, each different from the one before
    std::function<void()> onPulse;                   // focus moved to another window, application or Space

    void start(); // does nothing when running
    void stop();  // does nothing when stopped; publishes nothing and keeps the last state

    const FocusState& state() const { return m_state; }
    bool isRunning() const { return m_running; }
    bool isFastTracking() const { return m_fastTracking.isActive(); }
    bool isQueryInFlight() const { return m_queryInFlight; }
    WindowNumber currentWindowID() const { return m_currentWindowID; }

private:
    enum class Force { no, yes };

    void observeSystem();
    void screenParametersChanged();
    void frontmostChanged();
    void refresh(Force force); // all refreshes do the same work; `force` only documents the caller's intent
    void submitQuery(ProcessID pid);
    bool isCurrent(std::uint64_t generation, ProcessID pid) const;
    void finishQuery(std::uint64_t generation, ProcessID pid, std::unique_ptr<AXObservation> made);
    void install(std::unique_ptr<AXObservation> observation);
    void detachObserver();

    void apply(std::uint64_t generation, ProcessID pid, const AXFocusWorker::QueryResult& result);
    std::optional<Rect> frameOf(const AXFocusWorker::Snapshot& snapshot, ProcessID pid) const;
    void applyFocused(const AXFocusWorker::Snapshot& snapshot, ProcessID pid);
    void refreshOwnWindow(ProcessID pid);
    void publish(const FocusState& state);
    void forgetWindow(ProcessID pid); // no window is watched, and the cleared state is published
    void pulseAfterFocus(WindowIdentity identity);
    void setCurrentWindowID(WindowNumber windowID);

    void handleAX(const AXObservation* observation, std::string_view notification);
    void handleWindowServer(WindowNumber windowID, WindowServerChanges changes);
    void handleMouse(EventType event);
    bool followWindow(); // publishes where the watched window is now; false when it is gone
    void startFastTracking();
    void fastTick();
    void updateTrackingScreen(Force force);

    const FocusTrackerDependencies m_platform;
    FocusState m_state;
    AXQueries m_queries;
    std::unique_ptr<AXObservation> m_observation;
    WindowNumber m_currentWindowID = WindowNumber::none; // the window whose movement the window server reports
    ProcessID m_targetPID = ProcessID::none;
    bool m_running = false;
    std::uint64_t m_generation = 0; // incremented whenever pending results must be discarded
    std::uint64_t m_titleBarRevision = 0;
    bool m_queryInFlight = false;
    bool m_refreshPending = false; // a refresh was requested while a query ran
    FocusPulse m_pulse;
    FocusFrames m_frames;
    FastTracking m_fastTracking;
    Subscription m_pollTimer;
    Subscription m_mouseMonitor;
    Subscription m_localMouseMonitor;
    std::vector<Subscription> m_tokens;
    WeakAnchor<FocusTracker> m_anchor{*this};
};

} // namespace haloric
