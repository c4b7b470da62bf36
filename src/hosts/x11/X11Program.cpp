#include "hosts/x11/X11Program.h"

#include "app/ApplicationDependencies.h"
#include "app/HaloricProgram.h"
#include "app/InstanceControl.h"
#include "hosts/linux/LinuxTexts.h"
#include "hosts/linux/WaylandSession.h"
#include "hosts/linux/files/LinuxBundle.h"
#include "hosts/linux/files/LinuxLoginItemService.h"
#include "hosts/linux/files/LinuxUserDefaults.h"
#include "hosts/linux/form/QtFormWindows.h"
#include "hosts/linux/instance/InstanceLock.h"
#include "hosts/linux/instance/InstanceServer.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/linux/loop/LinuxSerialQueues.h"
#include "hosts/linux/loop/TerminationSignals.h"
#include "hosts/linux/qt/OptionalLog.h"
#include "hosts/linux/qt/QtApplication.h"
#include "hosts/linux/shell/QtAlerts.h"
#include "hosts/linux/shell/QtPanels.h"
#include "hosts/linux/shell/QtTrayMenus.h"
#include "hosts/linux/shell/QtUpdateProgress.h"
#include "hosts/linux/tray/TrayStatusItems.h"
#include "hosts/linux/update/AppcastFetcher.h"
#include "hosts/linux/update/BackgroundThread.h"
#include "hosts/linux/update/LinuxUpdaterFramework.h"
#include "hosts/x11/X11Application.h"
#include "hosts/x11/X11Desktop.h"
#include "hosts/x11/input/X11Hotkeys.h"
#include "hosts/x11/server/X11DisplayLoss.h"
#include "hosts/x11/shell/X11FocusRequest.h"
#include "hosts/x11/shell/X11QtWindowWatcher.h"
#include "hosts/x11/tray/X11TrayIcon.h"

#include <optional>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace haloric {

namespace {

constexpr Seconds kWindowManagerPatience{3};

// Shown at launch while no window manager reports the focus. Its one button changes nothing.
AlertModel onboardingAlert()
{
    return {
        .messageText = "Haloric needs a window manager",
        .informativeText =
            "Haloric asks the window manager which window has the focus and where it is. None runs on this display, or "
            "the one that runs does not tell (it would have to follow the Extended Window Manager Hints).\n\nThe "
            "highlight appears as soon as one does.",
        .style = AlertStyle::informational,
        .icon = AlertIcon::application,
        .buttons = {"OK"},
    };
}

// The program's own user interface.
struct Shell {
    Shell(const InstanceStart& start, X11Desktop& desktop, UserDefaults& userDefaults)
        : qtWindows(desktop.ownWindows),
          foreground(x11FocusRequest(start.connection)),
          trayIcons(start.connection, start.runLoop, desktop.ownWindows),
          statusItems(start.runLoop, trayIcons, trayMenus, start.processes),
          hotkeys(start.connection, desktop.keyboard, start.runLoop),
          loginItems(LinuxLoginItemService::standardFolder(start.processes), bundle.executable()),
          updaterFramework({.runLoop = start.runLoop,
                            .source = appcasts,
                            .progress = updateProgress,
                            .alerts = alerts,
                            .workspace = desktop.workspace,
                            .userDefaults = userDefaults,
                            .runInBackground = [this](Task work) { background.run(std::move(work)); }},
                           bundle)
    {
    }

    LinuxBundle bundle;
    X11QtWindowWatcher qtWindows;
    QtForeground foreground;
    QtAlerts alerts{foreground};
    QtPanels panels{foreground};
    X11TrayIcons trayIcons;
    QtTrayMenus trayMenus;
    TrayStatusItems statusItems;
    QtFormWindows formWindows{foreground};
    X11Hotkeys hotkeys;
    LinuxLoginItemService loginItems;
    AppcastFetcher appcasts;
    QtUpdateProgress updateProgress{foreground};
    BackgroundThread background;
    LinuxUpdaterFramework updaterFramework;
};

// Serves later starts of the program, and opens the settings window if this start asks for it.
class Contact {
public:
    Contact(const InstanceStart& start, HaloricProgram& entry, X11Application& application)
        : m_waitingForTheEnd(start.waitingForTheEnd),
          m_control(
              start.runLoop, entry.settingsStore(), [&application] { application.reopen(); },
              [&application] { application.terminate(); })
    {
        if (start.opensSettings)
            application.reopen();
        if (start.lock)
            m_server.emplace(start.runLoop, start.lock->listeningDescriptor(), geteuid(),
                             [this](std::string_view line) {
                                 const auto command = InstanceCommand::parse(line);
                                 return command ? m_control.perform(*command).bytes() : std::string();
                             });
    }

    ~Contact()
    {
        if (m_server)
            m_waitingForTheEnd = m_server->takeSockets();
    }
    Contact(const Contact&) = delete;
    Contact& operator=(const Contact&) = delete;

private:
    std::vector<PosixDescriptor>& m_waitingForTheEnd;
    InstanceControl m_control;
    std::optional<InstanceServer> m_server;
};

// Writes to the log, once, that the settings cannot be saved.
class SaveReport {
public:
    // Both outlive it.
    SaveReport(SettingsStore& store, Log& log)
        : m_store(store),
          m_log(log),
          m_changes(store.onSaveErrorChange([this] { report(); }))
    {
    }

private:
    void report()
    {
        if (const auto& error = m_store.saveError(); error && !std::exchange(m_isReported, true))
            m_log.line("haloric: the settings are not saved: " + error->localizedDescription);
    }

    SettingsStore& m_store;
    Log& m_log;
    bool m_isReported = false;
    Subscription m_changes;
};

// Tells the user, at the start, that a Wayland session hides most windows from the program.
class WaylandNotice {
public:
    WaylandNotice(const InstanceStart& start, ModelessAlerts& alerts)
    {
        if (!WaylandSession::isPresent(start.processes))
            return;
        start.log.line(WaylandSession::kLogLine);
        m_alert = alerts.show(WaylandSession::alert(), [this](std::size_t) { m_alert.reset(); });
    }
    WaylandNotice(const WaylandNotice&) = delete;
    WaylandNotice& operator=(const WaylandNotice&) = delete;

private:
    Subscription m_alert; // while it is open
};

} // namespace

int runX11Program(const InstanceStart& start)
{
    const X11DisplayLoss loss(start.connection.descriptor());
    Task displayLost = X11DisplayLoss::report; // called by both connections to the server, in any order
    const QtApplication qt([&displayLost] { displayLost(); });
    QtEventLoop loop(start.runLoop);
    OptionalLog desktopLog(start.log, start.processes);
    X11Desktop desktop(start.connection, start.runLoop, desktopLog);
    LinuxUserDefaults userDefaults(LinuxUserDefaults::standardFolder(start.processes), &start.log);
    Shell shell(start, desktop, userDefaults);
    LinuxSerialQueues serialQueues(start.runLoop);
    const X11ApplicationWindows applicationWindows(desktop.clients.table(), desktop.scale);
    X11Application application(loop, &applicationWindows);

    int exitCode = 0;
    displayLost = [&] {
        exitCode = X11DisplayLoss::kExitCode;
        X11DisplayLoss::report();
        application.terminate();
    };
    const auto lost = start.connection.onLost(displayLost);
    const auto termination = start.signals.watch(start.runLoop, [&application] { application.terminate(); });
    const AlertModel onboarding = onboardingAlert();
    const auto windowManagerCame = desktop.windowManager.onChange([&] {
        if (desktop.windowManager.isRunning())
            shell.alerts.dismiss(onboarding.messageText);
    });

    HaloricProgram entry({.runLoop = start.runLoop,
                          .serialQueues = serialQueues,
                          .displayLinks = desktop.displayLinks,
                          .workspace = desktop.workspace,
                          .screens = desktop.screens,
                          .accessibility = desktop.accessibility,
                          .windowInfoSource = desktop.windowInfoSource,
                          .windowServerCalls = desktop.windowServerCalls,
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
                          .onboardingAlert = onboarding,
                          .texts = linuxTexts()});
    const SaveReport saveReport(entry.settingsStore(), start.log);
    const Contact contact(start, entry, application);
    desktop.windowManager.waitUntilRunning(start.runLoop, kWindowManagerPatience,
                                           [&application] { return application.isTerminated(); });
    const WaylandNotice waylandNotice(start, shell.alerts);
    entry.run();
    return exitCode;
}

} // namespace haloric
