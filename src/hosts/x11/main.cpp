// The program on X11: its adapters, and the entry sequence that they are handed to.
#include "app/ApplicationPlatform.h"
#include "app/EntrySequence.h"
#include "hosts/posix/PosixProcesses.h"
#include "hosts/posix/StandardErrorLog.h"
#include "hosts/x11/CommandLine.h"
#include "hosts/x11/NoDesktopShell.h"
#include "hosts/x11/X11Accessibility.h"
#include "hosts/x11/X11Application.h"
#include "hosts/x11/X11ApplicationCatalog.h"
#include "hosts/x11/X11ApplicationWindows.h"
#include "hosts/x11/X11Bundle.h"
#include "hosts/x11/X11Clients.h"
#include "hosts/x11/X11Compositor.h"
#include "hosts/x11/X11Connection.h"
#include "hosts/x11/X11Diagnostics.h"
#include "hosts/x11/X11DisplayLinks.h"
#include "hosts/x11/X11InputMonitors.h"
#include "hosts/x11/X11Onboarding.h"
#include "hosts/x11/X11OwnWindows.h"
#include "hosts/x11/X11RawInput.h"
#include "hosts/x11/X11RunLoop.h"
#include "hosts/x11/X11Scale.h"
#include "hosts/x11/X11Screens.h"
#include "hosts/x11/X11SerialQueues.h"
#include "hosts/x11/X11TerminationSignals.h"
#include "hosts/x11/X11ToolkitWindows.h"
#include "hosts/x11/X11UserDefaults.h"
#include "hosts/x11/X11WindowInfoSource.h"
#include "hosts/x11/X11WindowManager.h"
#include "hosts/x11/X11WindowServerLibrary.h"
#include "hosts/x11/X11Workspace.h"
#include "hosts/x11/qt/X11FormWindows.h"
#include "hosts/x11/qt/X11Panels.h"
#include "hosts/x11/qt/X11QtAlerts.h"
#include "hosts/x11/qt/X11QtApplication.h"
#include "hosts/x11/qt/X11QtEventLoop.h"
#include "hosts/x11/qt/X11QtWindows.h"
#include "hosts/x11/qt/X11StatusItems.h"

#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace haloric;

namespace {

constexpr int kSuccess = 0;
constexpr int kNoDisplay = 1;
constexpr int kWrongUsage = 2;
constexpr std::string_view kVersion = HALORIC_VERSION;
constexpr const char* kDisplay = nullptr; // what DISPLAY names

int showDiagnostics(X11Connection& connection, X11RunLoop& runLoop, Log& log, const Processes& processes)
{
    X11Scale scale;
    const X11Screens screens(connection, runLoop, scale);
    const X11WindowManager windowManager(connection, runLoop);
    const X11Clients clients(connection, runLoop);
    X11Compositor compositor(connection);
    const X11ToolkitWindows toolkitWindows(connection, runLoop, compositor, scale, clients.table(), log);
    const X11RawInput rawInput(connection);
    const X11DisplayLinks displayLinks(connection, runLoop, scale);
    std::cout << X11Diagnostics::gather({.connection = connection,
                                         .windowManager = windowManager,
                                         .compositor = compositor,
                                         .screens = screens,
                                         .toolkitWindows = toolkitWindows,
                                         .displayLinks = displayLinks,
                                         .rawInput = rawInput,
                                         .processes = processes},
                                        kVersion)
                     .text();
    return kSuccess;
}

int run(X11Connection& connection, X11RunLoop& runLoop, X11TerminationSignals& signals, Log& log, Processes& processes)
{
    Task displayLost; // both connections to the server notice, and either may be the first
    const X11QtApplication qt([&displayLost] { displayLost(); });
    X11QtEventLoop loop(runLoop);
    X11Scale scale;
    X11Screens screens(connection, runLoop, scale);
    X11WindowManager windowManager(connection, runLoop);
    X11Clients clients(connection, runLoop);
    X11Workspace workspace(clients, runLoop);
    X11Accessibility accessibility(clients, windowManager, scale);
    X11WindowInfoSource windowInfoSource(clients.table(), scale);
    X11WindowServerLibrary windowServerLibrary(connection, kDisplay, clients, scale);
    X11Compositor compositor(connection);
    X11ToolkitWindows toolkitWindows(connection, runLoop, compositor, scale, clients.table(), log);
    X11RawInput rawInput(connection);
    X11OwnWindows ownWindows(connection);
    const X11QtWindows qtWindows(ownWindows);
    X11InputMonitors input(rawInput, ownWindows);
    X11DisplayLinks displayLinks(connection, runLoop, scale);
    X11SerialQueues serialQueues;
    const X11ApplicationWindows applicationWindows(clients.table(), scale);
    X11Application application(loop, &applicationWindows);
    X11QtAlerts alerts;
    const X11Bundle bundle;
    X11StatusItems statusItems(connection);
    X11FormWindows formWindows(connection);
    NoHotkeys hotkeys;
    NoLoginItemService loginItems;
    NoUpdaterFramework updaterFramework;
    X11Panels panels;
    X11ApplicationCatalog applicationCatalog(clients.table(), workspace);
    X11UserDefaults userDefaults(X11UserDefaults::standardFolder(processes));

    int exitCode = kSuccess;
    displayLost = [&] {
        if (std::exchange(exitCode, kNoDisplay) != kNoDisplay)
            log.line("haloric: the X server has gone away");
        application.terminate();
    };
    const auto lost = connection.onLost(displayLost);
    const AlertModel onboarding = X11Onboarding::alert();
    const auto windowManagerCame = windowManager.onChange([&] {
        if (windowManager.isRunning())
            alerts.dismiss(onboarding.messageText);
    });
    const auto termination = signals.watch(runLoop, [&application] { application.terminate(); });

    EntrySequence entry({.runLoop = runLoop,
                         .serialQueues = serialQueues,
                         .displayLinks = displayLinks,
                         .workspace = workspace,
                         .screens = screens,
                         .accessibility = accessibility,
                         .windowInfoSource = windowInfoSource,
                         .windowServerLibrary = windowServerLibrary,
                         .toolkitWindows = toolkitWindows,
                         .input = input,
                         .application = application,
                         .alerts = alerts,
                         .statusItems = statusItems,
                         .formWindows = formWindows,
                         .hotkeys = hotkeys,
                         .loginItems = loginItems,
                         .updaterFramework = updaterFramework,
                         .panels = panels,
                         .applicationCatalog = applicationCatalog,
                         .bundle = bundle,
                         .userDefaults = userDefaults,
                         .processes = processes,
                         .log = log,
                         .onboardingAlert = onboarding});
    X11Onboarding::waitForWindowManager(windowManager, runLoop, [&application] { return application.isTerminated(); });
    entry.run();
    return exitCode;
}

int runOnDisplay(CommandLine::Action action)
{
    X11TerminationSignals signals; // before anything starts a thread
    X11RunLoop runLoop;
    StandardErrorLog log;
    PosixProcesses processes;
    const auto connection = X11Connection::open(kDisplay, runLoop);
    if (!connection) {
        const auto name = processes.environmentVariable("DISPLAY");
        log.line(name ? "haloric: the X display \"" + *name + "\" does not answer"
                      : "haloric: no X display: DISPLAY is not set");
        return kNoDisplay;
    }
    if (action == CommandLine::Action::showDiagnostics)
        return showDiagnostics(*connection, runLoop, log, processes);
    return run(*connection, runLoop, signals, log, processes);
}

} // namespace

int main(int argumentCount, char** argumentValues)
{
    const std::vector<std::string_view> arguments(argumentValues + (argumentCount > 0 ? 1 : 0),
                                                  argumentValues + argumentCount);
    const CommandLine commandLine = CommandLine::parse(arguments);
    switch (commandLine.action) {
    case CommandLine::Action::showHelp:
        std::cout << CommandLine::helpText();
        return kSuccess;
    case CommandLine::Action::showVersion:
        std::cout << "Haloric " << kVersion << '\n';
        return kSuccess;
    case CommandLine::Action::refuse:
        std::cerr << commandLine.complaint << "\nTry 'haloric --help'.\n";
        return kWrongUsage;
    case CommandLine::Action::run:
    case CommandLine::Action::showDiagnostics:
        break;
    }
    return runOnDisplay(commandLine.action);
}
