// Owns every overlay window and turns the focus state and the settings into what is on screen, in one idempotent
// pass after every change. Main thread. Callbacks hold the controller weakly.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Time.h"
#include "foundation/WeakAnchor.h"
#include "overlay/AppDimView.h"
#include "overlay/DimView.h"
#include "overlay/HighlightView.h"
#include "overlay/OverlayDependencies.h"
#include "overlay/OverlayWindow.h"
#include "overlay/ScreenshotHotkeyMonitor.h"
#include "settings/SettingsStore.h"
#include "tracking/FocusState.h"
#include "windowserver/WindowList.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace haloric {

class OverlayController {
public:
    static constexpr Seconds kPulseDuration{0.55};
    static constexpr Seconds kPulseInterval{1.0 / 60};
    static constexpr Seconds kAppDimInterval{0.2};
    static constexpr Seconds kAppDimTolerance{0.05};
    static constexpr Seconds kAppDimSnapshotLifetime{0.1};

    // Makes the windows and starts listening; shows nothing before the first state. `platform` is copied; what it
    // refers to, and the store, outlive the controller.
    OverlayController(const OverlayDependencies& platform, SettingsStore& store);

    void setState(const FocusState& state); // the tracker's newest state
    void pulse();                           // starts (over) if a window has focus and the setting is on

    // What is on screen, for tests.
    const FocusState& state() const { return m_state; }
    const OverlayWindow& highlightWindow() const { return *m_highlightWindow; }
    const HighlightView& highlightView() const { return m_highlightView; }
    std::span<const std::unique_ptr<OverlayWindow>> dimWindows() const { return m_dimWindows; }
    std::span<const std::unique_ptr<DimView>> dimViews() const { return m_dimViews; }
    std::span<const std::unique_ptr<OverlayWindow>> appDimWindows() const { return m_appDimWindows; }
    std::span<const std::unique_ptr<AppDimView>> appDimViews() const { return m_appDimViews; }
    bool appDimTimerRunning() const { return static_cast<bool>(m_appDimTimer); }
    bool pulseRunning() const { return static_cast<bool>(m_pulseTimer); }
    bool screenshotUIVisible() const { return m_screenshotUIVisible; }

private:
    using OverlayWindows = std::vector<std::unique_ptr<OverlayWindow>>;
    struct AppDimSnapshot {
        std::vector<WindowList::Entry> entries;
        Seconds at{0}; // wall clock
    };

    void observeOutside();
    void screenParametersChanged();
    void activeSpaceChanged();
    void settingsChanged(const Settings& settings);
    void screenshotUIChanged(bool visible);
    void rebuildDimWindows();
    std::unique_ptr<OverlayWindow> makeWindow() const;
    void layout();
    void layoutDimming(const Rect& focusedFrame);
    void layoutDim(const Rect& focusedFrame);
    void layoutAppDim(const Rect& focusedFrame);
    void layoutHighlight(const Rect& focusedFrame);
    void hideAppDim();
    void showBelowHighlight(OverlayWindow& window);
    static void orderOut(const OverlayWindows& windows);
    void appDimTick();
    void pulseTick();
    void setPulseProgress(double progress);

    OverlayDependencies m_platform;
    SettingsStore& m_store;
    HighlightView m_highlightView; // views before their windows, to outlive them
    std::unique_ptr<OverlayWindow> m_highlightWindow;
    bool m_highlightNeedsOrdering = true;
    std::vector<std::unique_ptr<DimView>> m_dimViews; // one of each per screen, in the order of the screens
    OverlayWindows m_dimWindows;
    std::vector<std::unique_ptr<AppDimView>> m_appDimViews;
    OverlayWindows m_appDimWindows;
    std::vector<AppDimView::Window> m_appDimItems; // kept only to reuse the storage
    std::vector<AppDimView::Window> m_localAppDimItems;
    Subscription m_appDimTimer;
    std::optional<AppDimSnapshot> m_appDimSnapshot;
    FocusState m_state;
    bool m_screenshotUIVisible = false;
    ScreenshotHotkeyMonitor m_screenshotMonitor;
    Subscription m_pulseTimer;
    std::optional<Seconds> m_pulseStart; // wall clock
    std::vector<Subscription> m_cancellables;
    WeakAnchor<OverlayController> m_anchor{*this};
};

} // namespace haloric
