// The content of the settings window, as a form. Every control writes to the store at once, so there is nothing to
// apply or to cancel; all that is shown comes from the store and from the desktop, and is read afresh for each form.
// Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/WeakAnchor.h"
#include "platform/FormModel.h"
#include "settings/LaunchAtLogin.h"
#include "settings/SettingsControls.h"
#include "settings/SettingsStore.h"
#include "settings/SettingsViewDependencies.h"

#include <functional>
#include <string>

namespace haloric {

class SettingsView {
public:
    // `platform` is copied; what it refers to, and the store, outlive the view. `launchAtLogin` is what the switch
    // shows until the form comes on screen.
    SettingsView(const SettingsViewDependencies& platform, SettingsStore& store, bool launchAtLogin);

    // The form as it stands now. Its controls do nothing once the view is gone.
    FormModel form() const;

    // Called with a new form after every write to the store, whoever wrote, when the form has come on screen, and when
    // the switch for the login item was used. Replaces the handler before; empty for none.
    void setOnFormChange(std::function<void(const FormModel&)> handler);

    // What the switch shows: the state of the login item when it was last read, or what the user has just chosen.
    bool launchAtLogin() const { return m_launchAtLogin; }

    // Dims the windows of that application too; nothing happens when it is in the list already.
    void addDimApp(const std::string& bundleIdentifier);

    // Lets the user pick an installed application for the list; blocks until that is done. Cancelling adds nothing, nor
    // does a bundle without an identifier.
    void chooseDimApp();

private:
    FormSection generalSection() const;
    FormSection dimSection() const;
    FormRow dimAppRow(std::string id, const std::string& bundleIdentifier) const;
    FormRow runningAppsMenu() const;
    std::vector<FormRow> buttons() const;

    void removeDimApp(const std::string& bundleIdentifier);
    void setLaunchAtLogin(bool enabled);
    void readLaunchAtLogin();
    void publish() const;

    SettingsViewDependencies m_platform;
    SettingsStore& m_store;
    SettingsControls m_controls;
    LaunchAtLogin m_loginItem;
    bool m_launchAtLogin;
    std::function<void(const FormModel&)> m_onFormChange;
    Subscription m_storeSubscription;
    WeakAnchor<SettingsView> m_anchor{*this};
};

} // namespace haloric
