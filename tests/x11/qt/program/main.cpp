// The user interface alone, with a toy behind it. A test tells it what to do by lines on a socket, and reads on
// standard output what the user did.
#include "hosts/x11/X11Application.h"
#include "hosts/x11/X11Connection.h"
#include "hosts/x11/X11RunLoop.h"
#include "hosts/x11/X11TerminationSignals.h"
#include "hosts/x11/qt/X11FormWindows.h"
#include "hosts/x11/qt/X11Panels.h"
#include "hosts/x11/qt/X11QtAlerts.h"
#include "hosts/x11/qt/X11QtApplication.h"
#include "hosts/x11/qt/X11QtEventLoop.h"
#include "hosts/x11/qt/X11StatusItems.h"
#include "x11/qt/program/ToyProgram.h"

#include <cstdlib>
#include <iostream>

using namespace haloric;

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        std::cerr << "usage: haloric-qt-toy DESCRIPTOR\n";
        return 2;
    }
    X11TerminationSignals signals;
    X11RunLoop runLoop;
    const auto connection = X11Connection::open(nullptr, runLoop);
    if (!connection)
        return 1;
    const X11QtApplication qt([] { std::cout << "display lost" << std::endl; });
    X11QtEventLoop loop(runLoop);
    X11Application application(loop);
    X11StatusItems statusItems(*connection);
    X11FormWindows formWindows(*connection);
    X11QtAlerts alerts;
    X11Panels panels;
    const auto termination = signals.watch(runLoop, [&application] { application.terminate(); });
    ToyProgram toy({application, statusItems, formWindows, alerts, panels});
    const auto commands = toy.obey(runLoop, std::atoi(arguments[1]));
    std::cout << "ready" << std::endl;
    application.run();
    std::cout << "ended" << std::endl;
    return 0;
}
