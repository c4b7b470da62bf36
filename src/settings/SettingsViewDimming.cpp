// The part of the settings window's content that lists the applications whose windows are dimmed.
#include "platform/ApplicationCatalog.h"
#include "platform/Panels.h"
#include "settings/AppInfo.h"
#include "settings/SettingsSections.h"
#include "settings/SettingsView.h"

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

void SettingsView::addDimApp(const std::string& bundleIdentifier)
{
    if (!contains(m_store.settings().dimApps, bundleIdentifier))
        m_store.update([&](Settings& settings) { settings.dimApps.push_back(bundleIdentifier); });
}

void SettingsView::chooseDimApp()
{
    const auto weak = m_weakAnchor.ref(); // the panel lets the main loop go on
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

FormSection SettingsView::dimSection() const
{
    FormSection section = SettingsSections::dim(m_controls);
    if (m_store.settings().dimScope != DimScope::selectedApps)
        return section;
    section.footer = "Only windows of the selected apps are dimmed while they're not in focus.";
    std::map<std::string, int> rowsBefore; // a stored list may name an application twice, but ids are unique
    for (const std::string& bundleIdentifier : m_store.settings().dimApps) {
        const int repetition = rowsBefore[bundleIdentifier]++;
        const std::string list = repetition == 0 ? "dimApps" : "dimApps#" + std::to_string(repetition + 1);
        section.rows.push_back(dimAppRow(list + "/" + bundleIdentifier, bundleIdentifier));
    }
    section.rows.push_back(runningAppsMenu());
    section.rows.push_back({"chooseApplication", FormButton{"Choose Application…", whileAlive([](SettingsView& self) {
                                                                self.chooseDimApp();
                                                            })}});
    return section;
}

FormRow SettingsView::dimAppRow(std::string id, const std::string& bundleIdentifier) const
{
    const std::string name = AppInfo::displayName(m_platform.applications, bundleIdentifier);
    return {std::move(id), FormListRow{.icon = AppInfo::icon(m_platform.applications, bundleIdentifier),
                                       .iconSize = kIconSize,
                                       .title = name,
                                       .removeImage = SymbolImage{"minus.circle"},
                                       .removeLabel = "Remove " + name,
                                       .remove = whileAlive([bundleIdentifier](SettingsView& self) {
                                           self.removeDimApp(bundleIdentifier);
                                       })}};
}

FormRow SettingsView::runningAppsMenu() const
{
    FormMenu menu{.label = "Add Running App"};
    for (const std::string& bundleIdentifier : AppInfo::runningApps(m_platform.applications, m_platform.bundle))
        if (!contains(m_store.settings().dimApps, bundleIdentifier))
            menu.items.push_back(
                {AppInfo::displayName(m_platform.applications, bundleIdentifier),
                 whileAlive([bundleIdentifier](SettingsView& self) { self.addDimApp(bundleIdentifier); })});
    return {"addRunningApp", std::move(menu)};
}

} // namespace haloric
