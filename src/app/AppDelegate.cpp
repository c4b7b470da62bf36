#include "app/AppDelegate.h"

#include "menubar/HotkeyManager.h"
#include "platform/Accessibility.h"
#include "platform/Alerts.h"
#include "platform/RunLoop.h"
#include "settings/AccessibilityGrant.h"

#include <cstdlib>
#include <optional>
#include <utility>

namespace haloric {

namespace {

// The wiring calls only what exists by then; a null pointer is a programming error.
template <class T>
T& require(const std::unique_ptr<T>& object)
{
    if (!object)
        std::abort();
    return *object;
}

AlertModel onboardingAlert()
{
    return {
        .messageText = "Haloric needs Accessibility access",
        .informativeText =
            "Haloric reads the position of the active window so it can draw the highlight around it. It never reads "
            "window contents or keystrokes.\n\nClick Open System Settings, then turn on Haloric in the Accessibility "
            "list. The highlight appears as soon as access is granted.",
        .style = AlertStyle::informational,
        .icon = AlertIcon::application,
        .buttons = {"Open System Settings", "Later"},
    };
}

} // namespace

AppDelegate::AppDelegate(const AppDelegateDependencies& platform, SettingsStore& store)
    : m_platform(platform),
      m_store(store)
{
}

void AppDelegate::applicationDidFinishLaunching()
{
    m_overlays = std::make_unique<OverlayController>(m_platform.overlay, m_store);
    m_tracker = std::make_unique<FocusTracker>(m_platform.tracking);
    m_tracker->onChange =
        m_anchor.bind([](AppDelegate& self, const FocusState& state) { require(self.m_overlays).setState(state); });
    m_tracker->onPulse = m_anchor.bind([](AppDelegate& self) { require(self.m_overlays).pulse(); });

    m_statusBar = std::make_unique<StatusBarController>(m_platform.statusBar, m_store, *m_tracker);
    m_platform.hotkeyManager.onTrigger =
        m_anchor.bind([](AppDelegate& self) { require(self.m_statusBar).openSettings(); });
    followHotkeySetting();

    if (!m_platform.accessibility.isProcessTrustedWithPrompt(false))
        showOnboarding();

    m_cancellables.push_back(m_platform.runLoop.scheduleOnce(Seconds(0), m_anchor.bind(&AppDelegate::startTracker)));
}

bool AppDelegate::applicationShouldHandleReopen(bool)
{
    require(m_statusBar).openSettings();
    return false;
}

void AppDelegate::applicationWillTerminate()
{
    if (m_trackerRunning)
        require(m_tracker).stop();
}

void AppDelegate::followHotkeySetting()
{
    HotkeyManager& hotkeyManager = m_platform.hotkeyManager;
    std::optional<bool> last;
    m_cancellables.push_back(m_store.subscribe([&hotkeyManager, last](const Settings& settings) mutable {
        if (std::exchange(last, settings.hotkeyEnabled) == settings.hotkeyEnabled)
            return;
        if (settings.hotkeyEnabled)
            hotkeyManager.enable();
        else
            hotkeyManager.disable();
    }));
}

void AppDelegate::showOnboarding()
{
    // Otherwise the alert of an accessory application opens behind the frontmost application.
    m_platform.application.activateIgnoringOtherApps();
    const auto answer = m_platform.alerts.runModal(m_platform.onboardingAlert.value_or(onboardingAlert()));
    if (answer == Alerts::kFirstButton && m_platform.accessibility.canBeGranted())
        grantAccessibility(m_platform.accessibility, m_platform.workspace);
}

void AppDelegate::startTracker()
{
    if (m_trackerRunning)
        return;
    m_trackerRunning = true;
    require(m_tracker).start();
}

} // namespace haloric
