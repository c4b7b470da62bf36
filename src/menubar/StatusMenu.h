// The contents of the status item's menu: its items, built once, and what they show. Main thread.
#pragma once

#include "platform/MenuModel.h"

#include <cstddef>
#include <functional>
#include <string>

namespace haloric {

struct Settings;

// What the items do; each is given the sending item.
struct StatusMenuActions {
    using Action = std::function<void(const MenuItem&)>;
    Action toggleBorder;
    Action toggleGlow;
    Action toggleTint;
    Action toggleDim;
    Action togglePulse;
    Action pickPreset; // whose sender represents an RGBA
    Action openSettings;
    Action toggleLogin;
    Action grantAX;
    Action showAbout;
    Action checkForUpdates; // empty: the menu has no such item
    Action terminate;
};

class StatusMenu {
public:
    explicit StatusMenu(const StatusMenuActions& actions);
    StatusMenu(const StatusMenu&) = delete;
    StatusMenu& operator=(const StatusMenu&) = delete;

    const MenuModel& model() const { return m_model; }

    void showEffects(const Settings& settings);
    void showLaunchAtLogin(bool isAvailable, bool isEnabled, const std::string& unavailableToolTip);
    void showAccessibility(bool canBeGranted); // the grant is missing, and there is one

private:
    std::size_t add(MenuItem item);
    std::size_t addAction(const std::string& title, const std::string& selector,
                          const StatusMenuActions::Action& action, const std::string& keyEquivalent = {});
    std::size_t addToggle(const std::string& title, const std::string& selector,
                          const StatusMenuActions::Action& action);
    void addPresets(const StatusMenuActions::Action& pickPreset);
    MenuItem& at(std::size_t index) { return m_model.items[index]; }

    MenuModel m_model;

    // Where in the model the items are that change.
    std::size_t m_borderItem = 0;
    std::size_t m_glowItem = 0;
    std::size_t m_tintItem = 0;
    std::size_t m_dimItem = 0;
    std::size_t m_pulseItem = 0;
    std::size_t m_loginItem = 0;
    std::size_t m_axItem = 0;
};

} // namespace haloric
