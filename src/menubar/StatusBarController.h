// The program's permanent user interface: the item in the menu bar, its menu, and the settings window. Reads and
// writes the settings, and updates the menu with them. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Time.h"
#include "foundation/WeakAnchor.h"
#include "menubar/StatusBarDependencies.h"
#include "menubar/StatusMenu.h"
#include "platform/FormWindows.h"
#include "platform/StatusItems.h"
#include "settings/SettingsStore.h"
#include "settings/SettingsView.h"

#include <memory>
#include <optional>
#include <vector>

namespace haloric {

class FocusTracker;

class StatusBarController final : public MenuDelegate {
public:
    // Adds the item to the menu bar. `platform` is copied; what it refers to, the store and the tracker outlive the
    // controller.
    StatusBarController(const StatusBarDependencies& platform, SettingsStore& store, FocusTracker& tracker);

    // Brings the settings window to the front. Made at the first call and reused.
    void openSettings();

    // Updates states, enablement, tooltips and visibility of the menu's items.
    void syncMenu();

    void menuNeedsUpdate() override;

    const MenuModel& menu() const { return m_menu->model(); }
    const FocusTracker& tracker() const { return m_tracker; }

private:
    StatusMenuActions actions();
    void readState();
    void readSystemState();
    void settingsChanged();
    void syncMenuAfterChange();
    void toggle(bool Settings::*effect);
    void pickPreset(const MenuItem& sender);
    void toggleLogin();
    void grantAX();
    void showAbout();
    void makeSettingsWindow();
    void formChanged();
    void showForm();

    StatusBarDependencies m_platform;
    SettingsStore& m_store;
    FocusTracker& m_tracker;
    std::unique_ptr<StatusMenu> m_menu; // outlives the item, which reads it
    std::unique_ptr<StatusItem> m_item;
    std::unique_ptr<SettingsView> m_settingsView;
    std::unique_ptr<FormWindow> m_settingsWindow;
    bool m_formIsStale = false; // the window shows an older form
    bool m_syncPending = false; // posted
    Seconds m_systemStateReadAt{0};
    std::vector<Subscription> m_cancellables;
    WeakAnchor<StatusBarController> m_anchor{*this};
};

} // namespace haloric
