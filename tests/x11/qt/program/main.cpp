// The Qt interface without the rest of Haloric. A test controls it by lines on a socket and reads the user's actions
// from standard output.
#include "hosts/linux/form/QtFormWindows.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/linux/loop/TerminationSignals.h"
#include "hosts/linux/qt/QtApplication.h"
#include "hosts/linux/shell/QtAlerts.h"
#include "hosts/linux/shell/QtPanels.h"
#include "hosts/linux/shell/QtTrayMenus.h"
#include "hosts/linux/tray/TrayStatusItems.h"
#include "hosts/posix/PosixProcesses.h"
#include "hosts/x11/X11Application.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/shell/X11FocusRequest.h"
#include "hosts/x11/tray/X11TrayIcon.h"
#include "x11/qt/program/HarnessProgram.h"

#include <cstdlib>
#include <iostream>

using namespace haloric;

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        std::cerr << "usage: haloric-form-harness DESCRIPTOR\n";
        return 2;
    }
    TerminationSignals signals;
    LinuxRunLoop runLoop;
    const auto connection = X11Connection::open(nullptr, runLoop);
    if (!connection)
        return 1;
    const QtApplication qt([] { std::cout << "display lost" << std::endl; });
    QtEventLoop loop(runLoop);
    X11Application application(loop);
    X11OwnWindows ownWindows(*connection);
    X11TrayIcons trayIcons(*connection, runLoop, ownWindows);
    QtTrayMenus trayMenus;
    const PosixProcesses processes;
    TrayStatusItems statusItems(runLoop, trayIcons, trayMenus, processes);
    QtForeground foreground(x11FocusRequest(*connection));
    QtFormWindows formWindows(foreground);
    QtAlerts alerts(foreground);
    QtPanels panels(foreground);
    const auto termination = signals.watch(runLoop, [&application] { application.terminate(); });
    HarnessProgram harness({statusItems, formWindows, alerts, panels});
    const auto commands = harness.obey(runLoop, std::atoi(arguments[1]));
    std::cout << "ready" << std::endl;
    application.run();
    std::cout << "ended" << std::endl;
    return 0;
}
