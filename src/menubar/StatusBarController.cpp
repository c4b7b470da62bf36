#include "menubar/StatusBarController.h"

#include "menubar/MenuBarIcon.h"
#include "menubar/UpdaterManager.h"
#include "platform/Accessibility.h"
#include "platform/Alerts.h"
#include "platform/Application.h"
#include "platform/Bundle.h"
#include "platform/Panels.h"
#include "platform/RunLoop.h"
#include "platform/WindowStyle.h"
#include "settings/AccessibilityGrant.h"
#include "settings/LaunchAtLogin.h"

#include <any>
#include <utility>

namespace haloric {

namespace {

constexpr double kCreditsFontSize = 11; // points

// How old the state of the login item and of the Accessibility grant may be while the settings change. A dragged slider
// changes them at the rate of the display, and each question goes to another process.
constexpr Seconds kSystemStateAge{1};

const FormWindowConfiguration kSettingsWindow{
    .title = "Haloric Settings",
    .styleMask = WindowStyle::kTitled | WindowStyle::kClosable | WindowStyle::kMiniaturizable,
    .isReleasedWhenClosed = false,
    .contentSize = {440, 560},
};

} // namespace

StatusBarController::StatusBarController(const StatusBarDependencies& platform, SettingsStore& store,
                                         FocusTracker& tracker)
    : m_platform(platform),
      m_store(store),
      m_tracker(tracker),
      m_item(platform.statusItems.make(StatusItems::kSquareLength))
{
    if (m_item->hasButton()) {
        m_item->setImage(MenuBarIcon::make());
        m_item->setToolTip("Haloric");
    }
    m_menu = std::make_unique<StatusMenu>(actions());
    readState();
    m_item->setMenu(m_menu->model(), *this);

    m_cancellables.push_back(m_store.subscribe([this](const Settings&) { settingsChanged(); }));
}

StatusMenuActions StatusBarController::actions()
{
    const auto toggling = [this](bool Settings::*effect) {
        return m_anchor.bind([effect](StatusBarController& self, const MenuItem&) { self.toggle(effect); });
    };
    const auto calling = [this](void (StatusBarController::*method)()) {
        return m_anchor.bind([method](StatusBarController& self, const MenuItem&) { (self.*method)(); });
    };
    StatusMenuActions actions{
        .toggleBorder = toggling(&Settings::borderEnabled),
        .toggleGlow = toggling(&Settings::glowEnabled),
        .toggleTint = toggling(&Settings::tintEnabled),
        .toggleDim = toggling(&Settings::dimEnabled),
        .togglePulse = toggling(&Settings::pulseEnabled),
        .pickPreset = m_anchor.bind(&StatusBarController::pickPreset),
        .openSettings = calling(&StatusBarController::openSettings),
        .toggleLogin = calling(&StatusBarController::toggleLogin),
        .grantAX = calling(&StatusBarController::grantAX),
        .showAbout = calling(&StatusBarController::showAbout),
        .checkForUpdates = nullptr,
        .terminate = [&application = m_platform.application](const MenuItem&) { application.terminate(); },
    };
    UpdaterManager& updater = m_platform.updaterManager();
    if (updater.isAvailable())
        actions.checkForUpdates = [&gate = updater.gate()](const MenuItem&) { gate.checkForUpdates(); };
    return actions;
}

void StatusBarController::syncMenu()
{
    readState();
    m_item->menuItemsChanged();
}

// The item reads the model right after this call.
void StatusBarController::menuNeedsUpdate() { readState(); }

void StatusBarController::settingsChanged()
{
    if (!std::exchange(m_syncPending, true))
        m_platform.runLoop.post(m_anchor.bind(&StatusBarController::syncMenuAfterChange));
}

void StatusBarController::syncMenuAfterChange()
{
    m_syncPending = false;
    m_menu->showEffects(m_store.settings());
    if (m_platform.runLoop.systemUptime() - m_systemStateReadAt >= kSystemStateAge)
        readSystemState();
    m_item->menuItemsChanged();
}

void StatusBarController::readState()
{
    m_menu->showEffects(m_store.settings());
    readSystemState();
}

void StatusBarController::readSystemState()
{
    m_systemStateReadAt = m_platform.runLoop.systemUptime();
    m_menu->showLaunchAtLogin(m_platform.launchAtLogin.isAvailable(), m_platform.launchAtLogin.isEnabled(),
                              m_platform.settingsView.texts.loginItemToolTip);
    m_menu->showAccessibility(!m_platform.accessibility.isProcessTrusted() && m_platform.accessibility.canBeGranted());
}

void StatusBarController::toggle(bool Settings::*effect)
{
    m_store.update([effect](Settings& settings) { settings.*effect = !(settings.*effect); });
}

void StatusBarController::pickPreset(const MenuItem& sender)
{
    if (const auto* color = std::any_cast<RGBA>(&sender.representedObject))
        m_store.update([accent = *color](Settings& settings) { settings.accent = accent; });
}

void StatusBarController::toggleLogin()
{
    LaunchAtLogin& launchAtLogin = m_platform.launchAtLogin;
    if (const auto error = launchAtLogin.set(!launchAtLogin.isEnabled()))
        m_platform.alerts.runModalError(*error);
    syncMenu();
}

void StatusBarController::grantAX() { grantAccessibility(m_platform.accessibility, m_platform.workspace); }

void StatusBarController::showAbout()
{
    m_platform.application.activateIgnoringOtherApps();
    m_platform.panels.orderFrontStandardAboutPanel({
        .applicationName = "Haloric",
        .applicationVersion = m_platform.bundle.infoString("CFBundleShortVersionString").value_or("dev"),
        .version = m_platform.bundle.infoString("CFBundleVersion").value_or(""),
        .credits = "Makes the focused window unmistakable.",
        .creditsFontSize = kCreditsFontSize,
    });
}

void StatusBarController::openSettings()
{
    if (!m_settingsWindow)
        makeSettingsWindow();
    else if (m_formIsStale)
        showForm();
    m_platform.application.activateIgnoringOtherApps();
    m_settingsWindow->makeKeyAndOrderFront();
}

void StatusBarController::makeSettingsWindow()
{
    m_settingsView =
        std::make_unique<SettingsView>(m_platform.settingsView, m_store, m_platform.launchAtLogin.isEnabled());
    m_settingsWindow = m_platform.formWindows.make(kSettingsWindow, m_settingsView->form());
    m_settingsWindow->center();
    // Bound, because the window may still write to the store while it is destroyed.
    m_settingsView->setOnFormChange(m_anchor.bind(&StatusBarController::formChanged));
}

void StatusBarController::formChanged()
{
    if (m_settingsWindow->isVisible())
        showForm();
    else
        m_formIsStale = true;
}

void StatusBarController::showForm()
{
    m_formIsStale = false;
    m_settingsWindow->setForm(m_settingsView->form());
}

} // namespace haloric
