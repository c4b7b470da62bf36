// The program on X11, from its command line.
#include "app/InstanceControl.h"
#include "hosts/linux/CommandLine.h"
#include "hosts/linux/files/LinuxUserDefaults.h"
#include "hosts/linux/instance/InstanceStartup.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/linux/loop/TerminationSignals.h"
#include "hosts/posix/PosixProcesses.h"
#include "hosts/posix/StandardErrorLog.h"
#include "hosts/x11/X11Desktop.h"
#include "hosts/x11/X11Diagnostics.h"
#include "hosts/x11/X11Program.h"
#include "hosts/x11/server/X11InstanceSelection.h"
#include "settings/SettingsStore.h"

#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using namespace haloric;

namespace {

constexpr int kSuccess = 0;
constexpr int kNoDisplay = 1;
constexpr int kWrongUsage = 2;
constexpr Seconds kPatience{5}; // for another instance
constexpr std::string_view kVersion = HALORIC_VERSION;
constexpr const char* kDisplay = nullptr; // what DISPLAY names

int showDiagnostics(X11Connection& connection, LinuxRunLoop& runLoop, Log& log, const Processes& processes)
{
    const X11Desktop desktop(connection, runLoop, log);
    std::cout << X11Diagnostics::gather(connection, desktop, processes, kVersion).text();
    return kSuccess;
}

// The socket of the instance that holds the display.
std::optional<std::filesystem::path> holderOfDisplay()
{
    LinuxRunLoop runLoop;
    const auto connection = X11Connection::open(kDisplay, runLoop);
    return connection ? X11InstanceSelection(*connection).holder() : std::nullopt;
}

InstanceStartup contactWithRunning(const Processes& processes)
{
    const auto display = processes.environmentVariable("DISPLAY");
    return {display ? InstancePaths::find(processes, *display) : std::nullopt,
            {.output = std::cout, .errors = std::cerr},
            kPatience,
            display ? holderOfDisplay : InstanceStartup::Finder()};
}

// Those of the running instance, or the ones that the next instance will read.
int printSettings(const Processes& processes)
{
    if (const auto exitCode = contactWithRunning(processes).command({.kind = InstanceCommand::Kind::printSettings}))
        return *exitCode;
    StandardErrorLog log;
    LinuxUserDefaults userDefaults(LinuxUserDefaults::standardFolder(processes), &log);
    std::cout << InstanceControl::printedSettings(SettingsStore(userDefaults)).text;
    return kSuccess;
}

std::string noDisplay(const std::optional<std::string>& name, const std::string& refusal)
{
    if (!name)
        return "haloric: no X display: DISPLAY is not set";
    const std::string display = "haloric: the X display \"" + *name + "\" ";
    return refusal.empty() ? display + "does not answer" : display + "refuses the connection: " + refusal;
}

int runOnDisplay(CommandLine::Action action)
{
    TerminationSignals::ignoreBrokenPipes();
    std::vector<PosixDescriptor> waitingForTheEnd; // first: its sockets close after the connection and the lock
    LinuxRunLoop runLoop;
    StandardErrorLog log;
    PosixProcesses processes;
    const auto name = processes.environmentVariable("DISPLAY");
    InstanceStartup contact = contactWithRunning(processes);
    InstanceStartup::Arrival arrival;
    if (name && action != CommandLine::Action::showDiagnostics)
        arrival = contact.arrive();
    if (arrival.exitCode)
        return *arrival.exitCode;
    std::string refusal;
    const auto connection = X11Connection::open(kDisplay, runLoop, &refusal);
    if (!connection) {
        log.line(noDisplay(name, refusal));
        return kNoDisplay;
    }
    if (action == CommandLine::Action::showDiagnostics)
        return showDiagnostics(*connection, runLoop, log, processes);
    X11InstanceSelection selection(*connection);
    const auto ownSocket = arrival.lock ? contact.socket() : std::filesystem::path();
    if (const auto exitCode = contact.giveWay([&] { return selection.claim(ownSocket); }))
        return *exitCode;
    // Not earlier: a running instance or the server may keep a start waiting, and the signals must end it then. No
    // thread has been started so far.
    TerminationSignals signals;
    return runX11Program({.connection = *connection,
                          .runLoop = runLoop,
                          .signals = signals,
                          .log = log,
                          .processes = processes,
                          .lock = arrival.lock.get(),
                          .opensSettings = action == CommandLine::Action::openSettings,
                          .waitingForTheEnd = waitingForTheEnd});
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
