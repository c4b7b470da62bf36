// The X11 host's user interface under the contract tests, wired as in the program.
#include "contract/shell/x11/X11ContractDialogs.h"
#include "contract/shell/x11/X11ContractForms.h"
#include "contract/shell/x11/X11ContractMenuBar.h"
#include "contract/shell/x11/X11ContractServices.h"
#include "hosts/linux/qt/QtApplication.h"
#include "hosts/posix/StandardErrorLog.h"
#include "hosts/x11/shell/X11FocusRequest.h"
#include "hosts/x11/shell/X11QtWindowWatcher.h"

namespace haloric {

namespace {

class X11ContractShell final : public ContractShell {
public:
    RunLoop& runLoop() override { return m_loop; }
    ContractMenuBar& menuBar() override { return m_menuBar; }
    ContractForms& forms() override { return m_forms; }
    ContractDialogs& dialogs() override { return m_dialogs; }
    ContractServices& services() override { return m_services; }
    bool waitUntil(const std::function<bool()>& holds) override { return m_user.waitUntil(holds); }
    void turnFor(Seconds duration) override { m_user.turnFor(duration); }

private:
    QtUserDesktop& m_qtDesktop = QtUserDesktop::shared(); // before what needs Qt
    LinuxRunLoop m_loop;
    std::unique_ptr<X11Connection> m_connection = X11Connection::open(m_qtDesktop.session.display().c_str(), m_loop);
    StandardErrorLog m_log;
    QtEventLoop m_qtLoop{m_loop};
    X11Desktop m_desktop{*m_connection, m_loop, m_log};
    X11QtWindowWatcher m_qtWindows{m_desktop.ownWindows};
    QtUser m_user{m_loop};
    X11ContractMenuBar m_menuBar{m_user, *m_connection, m_loop, m_desktop.ownWindows};
    QtForeground m_foreground{x11FocusRequest(*m_connection)};
    X11ContractForms m_forms{m_user, m_foreground};
    X11ContractDialogs m_dialogs{m_user, m_foreground};
    X11ContractServices m_services{m_user, *m_connection, m_loop, m_desktop, m_foreground};
};

} // namespace

std::vector<ContractShellFactory> contractShells()
{
    return {{"X11", []() -> std::unique_ptr<ContractShell> { return std::make_unique<X11ContractShell>(); }}};
}

void endContractShells() { QtUserDesktop::end(); }

} // namespace haloric
