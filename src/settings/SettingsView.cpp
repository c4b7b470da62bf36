#include "settings/SettingsView.h"

#include "platform/Accessibility.h"
#include "platform/Alerts.h"
#include "platform/Application.h"
#include "settings/AccessibilityGrant.h"
#include "settings/SettingsSections.h"

#include <utility>

namespace haloric {

SettingsView::SettingsView(const SettingsViewDependencies& platform, SettingsStore& store, bool launchAtLogin)
    : m_platform(platform),
      m_store(store),
      m_controls(store),
      m_loginItem(platform.bundle, platform.loginItems),
      m_launchAtLogin(launchAtLogin)
{
    m_storeSubscription = m_store.subscribe([weak = m_weakAnchor.ref()](const Settings&) {
        if (const SettingsView* self = weak.get())
            self->publish();
    });
}

FormModel SettingsView::form() const
{
    return {.sections = {generalSection(), SettingsSections::border(m_controls), SettingsSections::glow(m_controls),
                         SettingsSections::tint(m_controls), dimSection(), SettingsSections::pulse(m_controls),
                         SettingsSections::shortcut(m_controls)},
            .buttons = buttons()};
}

void SettingsView::setOnFormChange(std::function<void(const FormModel&)> handler)
{
    m_onFormChange = std::move(handler);
}

FormSection SettingsView::generalSection() const
{
    FormSection section = SettingsSections::general(m_controls);
    const bool isAvailable = m_loginItem.isAvailable();
    section.rows.push_back({"launchAtLogin", FormToggle{.label = "Launch at login",
                                                        .isOn = m_launchAtLogin,
                                                        .isEnabled = isAvailable,
                                                        .set = [weak = m_weakAnchor.ref()](bool isOn) {
                                                            if (SettingsView* self = weak.get())
                                                                self->setLaunchAtLogin(isOn);
                                                        }}});
    if (!isAvailable)
        section.footer = "Launch at login is available when running from Haloric.app.";
    section.onAppear = whileAlive([](SettingsView& self) { self.readLaunchAtLogin(); });
    return section;
}

std::vector<FormRow> SettingsView::buttons() const
{
    std::vector<FormRow> row;
    row.push_back({"resetToDefaults", FormButton{"Reset to Defaults", whileAlive([](SettingsView& self) {
                                                     self.m_store.setSettings(Settings::defaults());
                                                 })}});
    if (!m_platform.accessibility.isProcessTrusted())
        row.push_back({"grantAccessibility", FormButton{"Grant Accessibility…", whileAlive([](SettingsView& self) {
                                                            grantAccessibility(self.m_platform.accessibility,
                                                                               self.m_platform.workspace);
                                                        })}});
    row.push_back(
        {"restart", FormButton{"Restart", whileAlive([](SettingsView& self) { self.m_platform.restart(); })}});
    row.push_back({"quit", FormButton{"Quit Haloric", whileAlive([](SettingsView& self) {
                                          self.m_platform.application.terminate();
                                      })}});
    return row;
}

void SettingsView::setLaunchAtLogin(bool enabled)
{
    m_launchAtLogin = enabled;
    const auto weak = m_weakAnchor.ref(); // the alert lets the main loop go on
    if (const auto error = m_loginItem.set(enabled))
        m_platform.alerts.runModalError(*error);
    if (SettingsView* self = weak.get())
        self->readLaunchAtLogin();
}

void SettingsView::readLaunchAtLogin()
{
    m_launchAtLogin = m_loginItem.isEnabled();
    publish();
}

void SettingsView::publish() const
{
    if (const auto handler = m_onFormChange) // it may replace itself
        handler(form());
}

} // namespace haloric
