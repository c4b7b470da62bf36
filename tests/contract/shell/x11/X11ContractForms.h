// Forms as Qt widgets under the contract tests.
#pragma once

#include "contract/shell/ContractShell.h"
#include "contract/shell/x11/QtUser.h"
#include "hosts/linux/form/QtFormWindows.h"

namespace haloric {

class X11ContractForms final : public ContractForms {
public:
    X11ContractForms(QtUser& user, QtForeground& foreground) : m_user(user), m_windows(foreground) {}

    FormWindows& formWindows() override { return m_windows; }
    std::optional<ContractControl> control(const std::string& id) override;
    bool use(const std::string& id, const ContractValue& value) override;
    bool moveFocusTo(const std::string& id) override;
    std::string focusedControl() override;
    void closeWindow() override;

private:
    bool chooseColor(const Color& color);

    QtUser& m_user;
    QtFormWindows m_windows;
};

} // namespace haloric
