// Makes the long-lived objects when launching has finished, wires the tracker to the overlay and the hotkey to the
// settings window, and stops the tracker when the application quits. Owns them all; its callbacks hold it weakly. Main
// thread.
#pragma once

#include "app/AppDelegateDependencies.h"
#include "foundation/Subscription.h"
#include "foundation/WeakAnchor.h"
#include "menubar/StatusBarController.h"
#include "overlay/OverlayController.h"
#include "platform/Application.h"
#include "settings/SettingsStore.h"
#include "tracking/FocusTracker.h"

#include <memory>
#include <vector>

namespace haloric {

class AppDelegate final : public ApplicationDelegate {
public:
    // `platform` is copied; what it refers to, and the store, outlive the delegate.
    AppDelegate(const AppDelegateDependencies& platform, SettingsStore& store);

    // Without Accessibility access it shows the onboarding alert and blocks until the alert is closed. The tracker
    // starts on a later turn of the main loop.
    void applicationDidFinishLaunching() override;

    // Opens the settings window. Returns false: no default handling.
    bool applicationShouldHandleReopen(bool hasVisibleWindows) override;

    void applicationWillTerminate() override;

    // Null before launching has finished.
    const StatusBarController* statusBar() const { return m_statusBar.get(); }
    const OverlayController* overlays() const { return m_overlays.get(); }
    const FocusTracker* tracker() const { return m_tracker.get(); }

    bool trackerRunning() const { return m_trackerRunning; }

private:
    void followHotkeySetting();
    void showOnboarding();
    void startTracker();

    AppDelegateDependencies m_platform;
    std::vector<Subscription> m_cancellables;
    std::unique_ptr<OverlayController> m_overlays;
    std::unique_ptr<FocusTracker> m_tracker;
    std::unique_ptr<StatusBarController> m_statusBar; // refers to the tracker
    bool m_trackerRunning = false;                    // whether the tracker was started
    SettingsStore& m_store;
    WeakAnchor<AppDelegate> m_anchor{*this};
};

} // namespace haloric
