#include "x11/program/shell/SettingsForm.h"

#include "testing/x11/Key.h"

#include <algorithm>

namespace haloric {

void SettingsForm::open(const std::string& settings)
{
    startInTray(settings);
    ASSERT_TRUE(shell->openSettings()) << log();
    ASSERT_TRUE(haloric->waitForHighlight(frame()).has_value()) << log();
    m_current = order().front();
}

std::vector<std::string> SettingsForm::order()
{
    const Settings now = stored().value_or(Settings::defaults());
    std::vector<std::string> names{"accent", "cornerRadius", "hideWhenFullScreen"};
    if (bundle)
        names.push_back("launchAtLogin");
    const auto add = [&names](std::initializer_list<const char*> more) {
        names.insert(names.end(), more.begin(), more.end());
    };
    const auto addEffect = [&names](const std::string& effect, const EffectColor& color) {
        names.push_back(effect + "Enabled");
        names.push_back(effect + "Color.useAccent");
        if (!color.useAccent)
            names.push_back(effect + "Color.custom");
    };
    addEffect("border", now.borderColor);
    add({"borderWidth"});
    addEffect("glow", now.glowColor);
    add({"glowRadius", "glowOpacity"});
    addEffect("tint", now.tintColor);
    add({"tintOpacity", "tintHeight", "dimEnabled", "dimColor", "dimOpacity", "dimScope"});
    if (now.dimScope == DimScope::selectedApps) {
        names.insert(names.end(), now.dimApps.begin(), now.dimApps.end());
        add({"addRunningApp", "chooseApplication"});
    }
    add({"pulseEnabled", "hotkeyEnabled", "resetToDefaults", "restart", "quit"});
    return names;
}

void SettingsForm::goTo(const std::string& name)
{
    const auto names = order();
    const auto from = std::ranges::find(names, m_current);
    const auto to = std::ranges::find(names, name);
    ASSERT_TRUE(from != names.end() && to != names.end()) << m_current << " to " << name;
    for (auto tabs = to - from; tabs > 0; --tabs)
        press(Key::kTab);
    for (auto tabs = from - to; tabs > 0; --tabs)
        session.input().chord({Key::kShift, Key::kTab});
    m_current = name;
}

bool SettingsForm::chooseInDialog(const std::string& title)
{
    press(Key::kSpace);
    if (!shell->waitUntilActive(title))
        return false;
    const ScreenRect dialog = shell->content(title);
    session.input().clickAt(dialog.x + 30, dialog.y + 50); // one of the basic colours
    return true;
}

} // namespace haloric
