// The content of the settings window, as a form. Every control writes to the store at once: there is no Apply or
// Cancel. Each form is made from the current state of the store and the desktop. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/WeakAnchor.h"
#include "platform/FormModel.h"
#include "settings/LaunchAtLogin.h"
#include "settings/SettingsControls.h"
#include "settings/SettingsStore.h"
#include "settings/SettingsViewDependencies.h"

#include <string>
#include <vector>

namespace haloric {

class SettingsView {
public:
    // `platform` is copied; what it refers to, and the store, outlive the view. `launchAtLogin` is what the switch
    // shows until the form comes on screen.
    SettingsView(const SettingsViewDependencies& platform, SettingsStore& store, bool launchAtLogin);

    // The current form. Its controls do nothing once the view is gone.
    FormModel form() const;

    // Called when `form` may return another form: after every write to the store, when writes begin or cease to be
    // saved, when the form has come on screen, and when the switch for the login item was used. Replaces the previous
    // handler; may be empty.
    void setOnFormChange(Task handler);

    // The switch's value: the state of the login item when it was last read, or the user's choice while it is applied.
    bool launchAtLogin() const { return m_launchAtLogin; }

    // Adds the application to the list of those whose windows are dimmed, unless it is in the list.
    void addDimApp(const std::string& bundleIdentifier);

    // Lets the user choose an installed application for the list; blocks until the panel is closed. Cancelling adds
    // nothing, nor does a bundle without an identifier.
    void chooseDimApp();

private:
    FormSection generalSection() const;
    FormSection dimSection() const;
    void readDimApps();
    FormRow dimAppRow(std::string id, const std::string& bundleIdentifier) const;
    std::vector<FormMenuItem> runningAppsToAdd() const;
    std::vector<FormRow> buttons() const;
    std::string notice() const;

    void removeDimApp(const std::string& bundleIdentifier);
    void setLaunchAtLogin(bool enabled);
    void appeared();
    void readLaunchAtLogin();
    void publish() const;

    SettingsViewDependencies m_platform;
    SettingsStore& m_store;
    SettingsControls m_controls;
    LaunchAtLogin m_loginItem;
    bool m_launchAtLogin;
    bool m_awaitsApproval = false;      // the login item, when it was last read
    std::vector<std::string> m_dimApps; // those that the rows are made of
    std::vector<FormRow> m_dimAppRows;  // kept, because names and icons come from the system's catalogue
    Task m_onFormChange;
    std::vector<Subscription> m_subscriptions;
    WeakAnchor<SettingsView> m_anchor{*this};
};

} // namespace haloric
