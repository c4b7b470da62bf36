// Qt's dialogs under the contract tests.
#pragma once

#include "contract/shell/ContractShell.h"
#include "contract/shell/x11/QtUser.h"
#include "hosts/linux/shell/QtAlerts.h"
#include "hosts/linux/shell/QtPanels.h"

namespace haloric {

class X11ContractDialogs final : public ContractDialogs {
public:
    X11ContractDialogs(QtUser& user, QtForeground& foreground)
        : m_user(user),
          m_alerts(foreground),
          m_panels(foreground)
    {
    }

    Alerts& alerts() override { return m_alerts; }
    Panels& panels() override { return m_panels; }
    void whenOpen(std::function<void()> act) override;
    std::vector<std::string> texts() override;
    std::vector<std::string> buttons() override;
    void press(const std::string& button) override { m_user.click(button); }
    void chooseApplication(const std::string& path) override;
    void cancelPanel() override;
    std::vector<std::string> aboutTexts() override;

private:
    QtUser& m_user;
    QtAlerts m_alerts;
    QtPanels m_panels;
};

} // namespace haloric
