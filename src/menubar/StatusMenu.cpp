#include "menubar/StatusMenu.h"

#include "menubar/AccentPresets.h"
#include "menubar/Swatch.h"
#include "settings/Settings.h"

#include <utility>

namespace haloric {

namespace {

MenuItem actionItem(const std::string& title, const std::string& selector, MenuTarget target,
                    const StatusMenuActions::Action& action, const std::string& keyEquivalent = {})
{
    MenuItem item;
    item.title = title;
    item.action = MenuAction{selector, target, action};
    item.keyEquivalent = keyEquivalent;
    return item;
}

MenuItem heading(const std::string& title)
{
    MenuItem item;
    item.title = title;
    item.isEnabled = false;
    return item;
}

} // namespace

StatusMenu::StatusMenu(const StatusMenuActions& actions)
{
    add(heading("Haloric"));
    add(MenuItem::separator());
    m_borderItem = addToggle("Border", "toggleBorder", actions.toggleBorder);
    m_glowItem = addToggle("Glow", "toggleGlow", actions.toggleGlow);
    m_tintItem = addToggle("Title-bar tint", "toggleTint", actions.toggleTint);
    m_dimItem = addToggle("Dim other windows", "toggleDim", actions.toggleDim);
    m_pulseItem = addToggle("Pulse on focus change", "togglePulse", actions.togglePulse);
    add(MenuItem::separator());
    addPresets(actions.pickPreset);
    addAction("Settings…", "openSettings", actions.openSettings, ",");
    add(MenuItem::separator());
    m_loginItem = addToggle("Launch at Login", "toggleLogin", actions.toggleLogin);
    m_axItem = addAction("Grant Accessibility Permission…", "grantAX", actions.grantAX);
    add(MenuItem::separator());
    addAction("About Haloric", "showAbout", actions.showAbout);
    if (actions.checkForUpdates)
        add(actionItem("Check for Updates…", "checkForUpdates:", MenuTarget::updaterGate, actions.checkForUpdates));
    add(actionItem("Quit Haloric", "terminate:", MenuTarget::none, actions.terminate, "q"));
}

void StatusMenu::showEffects(const Settings& settings)
{
    at(m_borderItem).isOn = settings.borderEnabled;
    at(m_glowItem).isOn = settings.glowEnabled;
    at(m_tintItem).isOn = settings.tintEnabled;
    at(m_dimItem).isOn = settings.dimEnabled;
    at(m_pulseItem).isOn = settings.pulseEnabled;
}

void StatusMenu::showLaunchAtLogin(bool isAvailable, bool isEnabled, const std::string& unavailableToolTip)
{
    MenuItem& item = at(m_loginItem);
    item.isOn = isEnabled;
    item.isEnabled = isAvailable;
    item.toolTip = isAvailable ? "" : unavailableToolTip;
}

void StatusMenu::showAccessibility(bool canBeGranted) { at(m_axItem).isHidden = !canBeGranted; }

std::size_t StatusMenu::add(MenuItem item)
{
    m_model.items.push_back(std::move(item));
    return m_model.items.size() - 1;
}

std::size_t StatusMenu::addAction(const std::string& title, const std::string& selector,
                                  const StatusMenuActions::Action& action, const std::string& keyEquivalent)
{
    return add(actionItem(title, selector, MenuTarget::controller, action, keyEquivalent));
}

std::size_t StatusMenu::addToggle(const std::string& title, const std::string& selector,
                                  const StatusMenuActions::Action& action)
{
    const std::size_t index = addAction(title, selector, action);
    at(index).isCheckable = true;
    return index;
}

void StatusMenu::addPresets(const StatusMenuActions::Action& pickPreset)
{
    MenuItem presets;
    presets.title = "Accent color";
    for (const AccentPreset& preset : kAccentPresets) {
        MenuItem item = actionItem(std::string(preset.name), "pickPreset:", MenuTarget::controller, pickPreset);
        item.representedObject = preset.color;
        item.image = swatch(preset.color);
        presets.submenu.push_back(std::move(item));
    }
    add(std::move(presets));
}

} // namespace haloric
