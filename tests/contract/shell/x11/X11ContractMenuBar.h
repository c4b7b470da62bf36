// The tray under the contract tests: its icon, and the open menu.
#pragma once

#include "contract/shell/ContractShell.h"
#include "contract/shell/x11/QtUser.h"
#include "hosts/linux/shell/QtTrayMenus.h"
#include "hosts/linux/tray/TrayStatusItems.h"
#include "hosts/posix/PosixProcesses.h"
#include "hosts/x11/tray/X11TrayIcon.h"

namespace haloric {

class X11ContractMenuBar final : public ContractMenuBar {
public:
    X11ContractMenuBar(QtUser& user, X11Connection& connection, LinuxRunLoop& runLoop, X11OwnWindows& ownWindows)
        : m_user(user),
          m_icons(connection, runLoop, ownWindows),
          m_items(runLoop, m_icons, m_menus, m_processes)
    {
    }

    StatusItems& statusItems() override { return m_items; }
    bool showsItem() override { return m_user.panel().hasIcon(); }
    std::string toolTip() override;
    std::vector<ContractMenuItem> readMenu() override;
    bool choose(const std::vector<std::string>& titles) override;

private:
    bool openMenu();

    QtUser& m_user;
    PosixProcesses m_processes;
    X11TrayIcons m_icons;
    QtTrayMenus m_menus;
    TrayStatusItems m_items;
};

} // namespace haloric
