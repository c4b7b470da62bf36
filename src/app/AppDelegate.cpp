#include "app/AppDelegate.h"

#include "platform/Accessibility.h"
#include "platform/Alerts.h"
#include "platform/RunLoop.h"
#include "settings/AccessibilityGrant.h"

#include <cstdlib>

namespace haloric {

namespace {

// What the wiring calls exists by then; anything else is a programming error, and no state to run on in.
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

AppDelegate::AppDelegate(const AppDelegatePlatform& platform, SettingsStore& store)
    : m_platform(platform),
      m_store(store)
{
}

void AppDelegate::applicationDidFinishLaunching()
{
    m_overlays = std::make_unique<OverlayController>(m_platform.overlay, m_store);
    m_tracker = std::make_unique<FocusTracker>(m_platform.tracking);
    m_tracker->onChange = [weak = m_weakAnchor.ref()](const FocusState& state) {
        if (AppDelegate* self = weak.get())
            require(self->m_overlays).setState(state);
    };
    m_tracker->onPulse = [weak = m_weakAnchor.ref()] {
        if (AppDelegate* self = weak.get())
            require(self->m_overlays).pulse();
    };

    if (!m_platform.accessibility.isProcessTrustedWithPrompt(false))
        showOnboarding();

    m_cancellables.push_back(m_platform.runLoop.scheduleOnce(Seconds(0), [weak = m_weakAnchor.ref()] {
        if (AppDelegate* self = weak.get())
            self->startTracker();
    }));
}

void AppDelegate::applicationWillTerminate()
{
    if (m_trackerRunning)
        require(m_tracker).stop();
}

void AppDelegate::showOnboarding()
{
    // An accessory application is otherwise behind the frontmost one, and the alert with it.
    m_platform.application.activateIgnoringOtherApps();
    if (m_platform.alerts.runModal(onboardingAlert()) == Alerts::kFirstButton)
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
