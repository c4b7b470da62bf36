#include "settings/SettingsView.h"

#include "platform/Accessibility.h"
#include "platform/Alerts.h"
#include "platform/Application.h"
#include "platform/ApplicationCatalog.h"
#include "platform/Panels.h"
#include "settings/AccessibilityGrant.h"
#include "settings/AppInfo.h"
#include "settings/SettingsSections.h"

#include <algorithm>
#include <map>
#include <utility>

namespace haloric {

namespace {

constexpr Size kIconSize{18, 18};

bool contains(const std::vector<std::string>& list, const std::string& element)
{
    return std::ranges::find(list, element) != list.end();
}

} // namespace

SettingsView::SettingsView(const SettingsViewDependencies& platform, SettingsStore& store, bool launchAtLogin)
    : m_platform(platform),
      m_store(store),
      m_controls(store),
      m_loginItem(platform.bundle, platform.loginItems),
      m_launchAtLogin(launchAtLogin)
{
    m_subscriptions.push_back(m_store.subscribe([this](const Settings& settings) {
        if (settings.dimApps != m_dimApps)
            readDimApps();
        publish();
    }));
    m_subscriptions.push_back(m_store.onSaveErrorChange([this] { publish(); }));
}

FormModel SettingsView::form() const
{
    return {.sections = {generalSection(), SettingsSections::border(m_controls), SettingsSections::glow(m_controls),
                         SettingsSections::tint(m_controls), dimSection(),
                         SettingsSections::pulse(m_controls, m_platform.texts),
                         SettingsSections::shortcut(m_controls, m_platform.texts)},
            .buttons = buttons(),
            .notice = notice()};
}

std::string SettingsView::notice() const
{
    const auto& error = m_store.saveError();
    if (!error)
        return {};
    const std::string& suggestion = error->localizedRecoverySuggestion;
    return "Your changes are not saved. " + error->localizedDescription + (suggestion.empty() ? "" : " " + suggestion);
}

void SettingsView::setOnFormChange(Task handler) { m_onFormChange = std::move(handler); }

FormSection SettingsView::generalSection() const
{
    FormSection section = SettingsSections::general(m_controls);
    const bool isAvailable = m_loginItem.isAvailable();
    section.rows.push_back({"launchAtLogin", FormToggle{.label = "Launch at login",
                                                        .isOn = m_launchAtLogin,
                                                        .isEnabled = isAvailable,
                                                        .set = m_anchor.bind(&SettingsView::setLaunchAtLogin)}});
    if (!isAvailable)
        section.footer = m_platform.texts.loginItemFooter;
    else if (m_awaitsApproval)
        section.footer = m_platform.texts.approvalFooter;
    section.onAppear = m_anchor.bind(&SettingsView::appeared);
    return section;
}

FormSection SettingsView::dimSection() const
{
    FormSection section = SettingsSections::dim(m_controls);
    if (m_store.settings().dimScope != DimScope::selectedApps)
        return section;
    section.footer = "Only windows of the selected apps are dimmed while they're not in focus.";
    section.rows.insert(section.rows.end(), m_dimAppRows.begin(), m_dimAppRows.end());
    const auto items = [ref = m_anchor.ref()] {
        const SettingsView* self = ref.get();
        return self ? self->runningAppsToAdd() : std::vector<FormMenuItem>();
    };
    section.rows.push_back({"addRunningApp", FormMenu{"Add Running App", items}});
    section.rows.push_back(
        {"chooseApplication", FormButton{"Choose Application…", m_anchor.bind(&SettingsView::chooseDimApp)}});
    return section;
}

void SettingsView::readDimApps()
{
    m_dimApps = m_store.settings().dimApps;
    m_dimAppRows.clear();
    std::map<std::string, int> rowsBefore; // a stored list may name an application twice, but ids are unique
    for (const std::string& bundleIdentifier : m_dimApps) {
        const int repetition = rowsBefore[bundleIdentifier]++;
        const std::string list = repetition == 0 ? "dimApps" : "dimApps#" + std::to_string(repetition + 1);
        m_dimAppRows.push_back(dimAppRow(list + "/" + bundleIdentifier, bundleIdentifier));
    }
}

FormRow SettingsView::dimAppRow(std::string id, const std::string& bundleIdentifier) const
{
    const std::string name = AppInfo::displayName(m_platform.applications, bundleIdentifier);
    return {std::move(id), FormListRow{.icon = AppInfo::icon(m_platform.applications, bundleIdentifier),
                                       .iconSize = kIconSize,
                                       .title = name,
                                       .removeImage = SymbolImage{"minus.circle"},
                                       .removeLabel = "Remove " + name,
                                       .remove = m_anchor.bind(&SettingsView::removeDimApp, bundleIdentifier)}};
}

std::vector<FormMenuItem> SettingsView::runningAppsToAdd() const
{
    std::vector<FormMenuItem> items;
    for (const std::string& bundleIdentifier : AppInfo::runningApps(m_platform.applications, m_platform.bundle))
        if (!contains(m_store.settings().dimApps, bundleIdentifier))
            items.push_back({AppInfo::displayName(m_platform.applications, bundleIdentifier),
                             m_anchor.bind(&SettingsView::addDimApp, bundleIdentifier)});
    return items;
}

std::vector<FormRow> SettingsView::buttons() const
{
    std::vector<FormRow> row;
    row.push_back({"resetToDefaults", FormButton{"Reset to Defaults", m_anchor.bind([](SettingsView& self) {
                                                     self.m_store.setSettings(Settings::defaults());
                                                 })}});
    if (!m_platform.accessibility.isProcessTrusted() && m_platform.accessibility.canBeGranted())
        row.push_back({"grantAccessibility", FormButton{"Grant Accessibility…", m_anchor.bind([](SettingsView& self) {
                                                            grantAccessibility(self.m_platform.accessibility,
                                                                               self.m_platform.workspace);
                                                        })}});
    row.push_back(
        {"restart", FormButton{"Restart", m_anchor.bind([](SettingsView& self) { self.m_platform.restart(); })}});
    row.push_back({"quit", FormButton{"Quit Haloric", m_anchor.bind([](SettingsView& self) {
                                          self.m_platform.application.terminate();
                                      })}});
    return row;
}

void SettingsView::addDimApp(const std::string& bundleIdentifier)
{
    if (!contains(m_store.settings().dimApps, bundleIdentifier))
        m_store.update([&](Settings& settings) { settings.dimApps.push_back(bundleIdentifier); });
}

void SettingsView::chooseDimApp()
{
    const auto weak = m_anchor.ref(); // the main loop runs during the panel
    const auto path = m_platform.panels.runModalOpenPanel(
        {.allowedContentType = ContentType::applicationBundle, .directory = "/Applications", .prompt = "Add"});
    SettingsView* self = weak.get();
    if (!self || !path)
        return;
    if (const auto bundleIdentifier = self->m_platform.applications.bundleIdentifier(*path))
        self->addDimApp(*bundleIdentifier);
}

void SettingsView::removeDimApp(const std::string& bundleIdentifier)
{
    m_store.update([&](Settings& settings) { std::erase(settings.dimApps, bundleIdentifier); });
}

void SettingsView::setLaunchAtLogin(bool enabled)
{
    m_launchAtLogin = enabled;
    const auto weak = m_anchor.ref(); // the main loop runs during the alert
    if (const auto error = m_loginItem.set(enabled))
        m_platform.alerts.runModalError(*error);
    if (SettingsView* self = weak.get())
        self->readLaunchAtLogin();
}

void SettingsView::appeared()
{
    readDimApps();
    readLaunchAtLogin();
}

void SettingsView::readLaunchAtLogin()
{
    m_launchAtLogin = m_loginItem.isEnabled();
    m_awaitsApproval = m_loginItem.awaitsApproval();
    publish();
}

void SettingsView::publish() const
{
    if (const Task handler = m_onFormChange) // it may replace itself
        handler();
}

} // namespace haloric
