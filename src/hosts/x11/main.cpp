// The program on X11: its adapters, and the entry sequence that they are handed to.
#include "app/ApplicationPlatform.h"
#include "app/EntrySequence.h"
#include "app/InstanceControl.h"
#include "hosts/posix/PosixProcesses.h"
#include "hosts/posix/StandardErrorLog.h"
#include "hosts/x11/CommandLine.h"
#include "hosts/x11/X11Accessibility.h"
#include "hosts/x11/X11Alerts.h"
#include "hosts/x11/X11Application.h"
#include "hosts/x11/X11Bundle.h"
#include "hosts/x11/X11Clients.h"
#include "hosts/x11/X11Compositor.h"
#include "hosts/x11/X11Connection.h"
#include "hosts/x11/X11Diagnostics.h"
#include "hosts/x11/X11DisplayLinks.h"
#include "hosts/x11/X11InputMonitors.h"
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
#include "hosts/x11/instance/X11InstanceContact.h"
#include "hosts/x11/instance/X11InstanceServer.h"

#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

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

// What a start on a display brings along.
struct Start {
    X11Connection& connection;
    X11RunLoop& runLoop;
    X11TerminationSignals& signals;
    Log& log;
    Processes& processes;
    const X11InstanceSeat* seat; // null: none could be taken
    bool opensSettings;
};

int run(const Start& start)
{
    X11Connection& connection = start.connection;
    X11RunLoop& runLoop = start.runLoop;
    Log& log = start.log;
    Processes& processes = start.processes;
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
    const X11OwnWindows ownWindows(connection);
    X11InputMonitors input(rawInput, ownWindows);
    X11DisplayLinks displayLinks(connection, runLoop, scale);
    X11SerialQueues serialQueues;
    X11Application application(runLoop);
    X11Alerts alerts;
    const X11Bundle bundle;
    X11UserDefaults userDefaults(X11UserDefaults::standardFolder(processes));

    int exitCode = kSuccess;
    const auto lost = connection.onLost([&] {
        log.line("haloric: the X server has gone away");
        exitCode = kNoDisplay;
        application.terminate();
    });
    const auto termination = start.signals.watch(runLoop, [&application] { application.terminate(); });

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
                         .bundle = bundle,
                         .userDefaults = userDefaults,
                         .processes = processes,
                         .log = log});

    InstanceControl control(
        runLoop, entry.settingsStore(), [&application] { application.reopen(); },
        [&application] { application.terminate(); });
    std::optional<X11InstanceServer> server;
    if (start.seat)
        server.emplace(runLoop, start.seat->listeningDescriptor(), geteuid(), [&control](std::string_view line) {
            const auto command = InstanceCommand::parse(line);
            return command ? control.perform(*command).bytes() : std::string();
        });
    if (start.opensSettings)
        control.perform({.kind = InstanceCommand::Kind::reopen}); // once launching has finished
    entry.run();
    return exitCode;
}

X11InstanceContact contactWithRunning(const Processes& processes)
{
    const auto display = processes.environmentVariable("DISPLAY");
    return {display ? X11InstancePlace::find(processes, *display) : std::nullopt,
            {.output = std::cout, .errors = std::cerr}};
}

// Of the running instance; when there is none, what the next one will read.
int printSettings(const Processes& processes)
{
    if (const auto exitCode = contactWithRunning(processes).command({.kind = InstanceCommand::Kind::printSettings}))
        return *exitCode;
    X11UserDefaults userDefaults(X11UserDefaults::standardFolder(processes));
    std::cout << InstanceControl::printedSettings(SettingsStore(userDefaults)).text;
    return kSuccess;
}

int runOnDisplay(CommandLine::Action action)
{
    X11TerminationSignals signals; // before anything starts a thread
    X11RunLoop runLoop;
    StandardErrorLog log;
    PosixProcesses processes;
    const auto name = processes.environmentVariable("DISPLAY");
    X11InstanceContact::Arrival arrival;
    if (name && action != CommandLine::Action::showDiagnostics)
        arrival = contactWithRunning(processes).arrive();
    if (arrival.exitCode)
        return *arrival.exitCode;
    const auto connection = X11Connection::open(kDisplay, runLoop);
    if (!connection) {
        log.line(name ? "haloric: the X display \"" + *name + "\" does not answer"
                      : "haloric: no X display: DISPLAY is not set");
        return kNoDisplay;
    }
    if (action == CommandLine::Action::showDiagnostics)
        return showDiagnostics(*connection, runLoop, log, processes);
    return run({.connection = *connection,
                .runLoop = runLoop,
                .signals = signals,
                .log = log,
                .processes = processes,
                .seat = arrival.seat.get(),
                .opensSettings = action == CommandLine::Action::openSettings});
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
    case CommandLine::Action::command:
        return contactWithRunning(PosixProcesses()).requireCommand(commandLine.command);
    case CommandLine::Action::printSettings:
        return printSettings(PosixProcesses());
    case CommandLine::Action::run:
    case CommandLine::Action::openSettings:
    case CommandLine::Action::showDiagnostics:
        break;
    }
    return runOnDisplay(commandLine.action);
}
