#include "hosts/x11/X11Program.h"

#include "app/ApplicationPlatform.h"
#include "app/EntrySequence.h"
#include "app/InstanceControl.h"
#include "hosts/x11/X11Accessibility.h"
#include "hosts/x11/X11Application.h"
#include "hosts/x11/X11ApplicationCatalog.h"
#include "hosts/x11/X11Bundle.h"
#include "hosts/x11/X11Clients.h"
#include "hosts/x11/X11Compositor.h"
#include "hosts/x11/X11Connection.h"
#include "hosts/x11/X11DisplayLinks.h"
#include "hosts/x11/X11Hotkeys.h"
#include "hosts/x11/X11InputMonitors.h"
#include "hosts/x11/X11LoginItemService.h"
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
#include "hosts/x11/instance/X11InstanceSeat.h"
#include "hosts/x11/instance/X11InstanceServer.h"
#include "hosts/x11/qt/X11FormWindows.h"
#include "hosts/x11/qt/X11Panels.h"
#include "hosts/x11/qt/X11QtAlerts.h"
#include "hosts/x11/qt/X11QtApplication.h"
#include "hosts/x11/qt/X11QtEventLoop.h"
#include "hosts/x11/qt/X11QtWindows.h"
#include "hosts/x11/qt/X11StatusItems.h"
#include "hosts/x11/qt/X11UpdateProgress.h"
#include "hosts/x11/update/X11AppcastFetcher.h"
#include "hosts/x11/update/X11UpdaterFramework.h"

#include <optional>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace haloric {

namespace {

constexpr int kDisplayLost = 1;
constexpr const char* kDisplay = nullptr; // what DISPLAY names

// What is read from the desktop, and the windows that are laid over it.
struct Desktop {
    Desktop(X11Connection& connection, X11RunLoop& runLoop, Log& log)
        : screens(connection, runLoop, scale),
          windowManager(connection, runLoop),
          clients(connection, runLoop),
          workspace(clients, runLoop),
          accessibility(runLoop, clients, windowManager, scale),
          windowInfoSource(clients.table(), scale),
          windowServerLibrary(connection, kDisplay, clients, scale),
          compositor(connection),
          toolkitWindows(connection, runLoop, compositor, scale, clients.table(), log),
          rawInput(connection),
          ownWindows(connection),
          input(rawInput, ownWindows),
          displayLinks(connection, runLoop, scale),
          catalog(clients.table(), workspace)
    {
    }

    X11Scale scale;
    X11Screens screens;
    X11WindowManager windowManager;
    X11Clients clients;
    X11Workspace workspace;
    X11Accessibility accessibility;
    X11WindowInfoSource windowInfoSource;
    X11WindowServerLibrary windowServerLibrary;
    X11Compositor compositor;
    X11ToolkitWindows toolkitWindows;
    X11RawInput rawInput;
    X11OwnWindows ownWindows;
    X11InputMonitors input;
    X11DisplayLinks displayLinks;
    X11ApplicationCatalog catalog;
};

// What the user touches.
struct Shell {
    Shell(const X11Start& start, Desktop& desktop, UserDefaults& userDefaults)
        : qtWindows(desktop.ownWindows),
          statusItems(start.connection),
          formWindows(start.connection),
          hotkeys(start.connection, start.runLoop),
          loginItems(X11LoginItemService::standardFolder(start.processes), bundle.executable()),
          updaterFramework({.runLoop = start.runLoop,
                            .source = appcasts,
                            .progress = updateProgress,
                            .alerts = alerts,
                            .workspace = desktop.workspace,
                            .userDefaults = userDefaults},
                           bundle)
    {
    }

    X11Bundle bundle;
    X11QtWindows qtWindows;
    X11QtAlerts alerts;
    X11Panels panels;
    X11StatusItems statusItems;
    X11FormWindows formWindows;
    X11Hotkeys hotkeys;
    X11LoginItemService loginItems;
    X11AppcastFetcher appcasts;
    X11UpdateProgress updateProgress;
    X11UpdaterFramework updaterFramework;
};

// Answers later starts of the program, and this one's own wish for the settings window.
class Contact {
public:
    Contact(const X11Start& start, EntrySequence& entry, X11Application& application)
        : m_control(
              start.runLoop, entry.settingsStore(), [&application] { application.reopen(); },
              [&application] { application.terminate(); })
    {
        if (start.opensSettings)
            application.reopen();
        if (start.seat)
            m_server.emplace(start.runLoop, start.seat->listeningDescriptor(), geteuid(),
                             [this](std::string_view line) {
                                 const auto command = InstanceCommand::parse(line);
                                 return command ? m_control.perform(*command).bytes() : std::string();
                             });
    }

private:
    InstanceControl m_control;
    std::optional<X11InstanceServer> m_server;
};

} // namespace

int runX11Program(const X11Start& start)
{
    Task displayLost; // both connections to the server notice, and either may be the first
    const X11QtApplication qt([&displayLost] { displayLost(); });
    X11QtEventLoop loop(start.runLoop);
    Desktop desktop(start.connection, start.runLoop, start.log);
    X11UserDefaults userDefaults(X11UserDefaults::standardFolder(start.processes));
    Shell shell(start, desktop, userDefaults);
    X11SerialQueues serialQueues;
    const X11ApplicationWindows applicationWindows(desktop.clients.table(), desktop.scale);
    X11Application application(loop, &applicationWindows);

    int exitCode = 0;
    displayLost = [&] {
        if (std::exchange(exitCode, kDisplayLost) != kDisplayLost)
            start.log.line("haloric: the X server has gone away");
        application.terminate();
    };
    const auto lost = start.connection.onLost(displayLost);
    const auto termination = start.signals.watch(start.runLoop, [&application] { application.terminate(); });
    const AlertModel onboarding = X11Onboarding::alert();
    const auto windowManagerCame = desktop.windowManager.onChange([&] {
        if (desktop.windowManager.isRunning())
            shell.alerts.dismiss(onboarding.messageText);
    });

    EntrySequence entry({.runLoop = start.runLoop,
                         .serialQueues = serialQueues,
                         .displayLinks = desktop.displayLinks,
                         .workspace = desktop.workspace,
                         .screens = desktop.screens,
                         .accessibility = desktop.accessibility,
                         .windowInfoSource = desktop.windowInfoSource,
                         .windowServerLibrary = desktop.windowServerLibrary,
                         .toolkitWindows = desktop.toolkitWindows,
                         .input = desktop.input,
                         .application = application,
                         .alerts = shell.alerts,
                         .statusItems = shell.statusItems,
                         .formWindows = shell.formWindows,
                         .hotkeys = shell.hotkeys,
                         .loginItems = shell.loginItems,
                         .updaterFramework = shell.updaterFramework,
                         .panels = shell.panels,
                         .applicationCatalog = desktop.catalog,
                         .bundle = shell.bundle,
                         .userDefaults = userDefaults,
                         .processes = start.processes,
                         .log = start.log,
                         .onboardingAlert = onboarding});
    const Contact contact(start, entry, application);
    X11Onboarding::waitForWindowManager(desktop.windowManager, start.runLoop,
                                        [&application] { return application.isTerminated(); });
    entry.run();
    return exitCode;
}

} // namespace haloric
