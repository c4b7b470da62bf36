// The program on macOS: makes the adapters and runs the program on them.
#include "app/ApplicationDependencies.h"
#include "app/HaloricProgram.h"
#include "hosts/macos/base/MacBundle.h"
#include "hosts/macos/base/MacLog.h"
#include "hosts/macos/base/MacProcesses.h"
#include "hosts/macos/base/MacUserDefaults.h"
#include "hosts/macos/form/MacFormWindows.h"
#include "hosts/macos/input/MacHotkeys.h"
#include "hosts/macos/input/MacInputMonitors.h"
#include "hosts/macos/loop/MacRunLoop.h"
#include "hosts/macos/loop/MacSerialQueues.h"
#include "hosts/macos/overlay/MacToolkitWindows.h"
#include "hosts/macos/refresh/MacDisplayLinks.h"
#include "hosts/macos/refresh/MacScreens.h"
#include "hosts/macos/refresh/MacVideoLinks.h"
#include "hosts/macos/shell/MacAlerts.h"
#include "hosts/macos/shell/MacApplication.h"
#include "hosts/macos/shell/MacLoginItemService.h"
#include "hosts/macos/shell/MacPanels.h"
#include "hosts/macos/shell/MacStatusItems.h"
#include "hosts/macos/shell/MacUpdaterFramework.h"
#include "hosts/macos/windows/MacAccessibility.h"
#include "hosts/macos/windows/MacApplicationCatalog.h"
#include "hosts/macos/windows/MacWindowInfoSource.h"
#include "hosts/macos/windows/MacWorkspace.h"
#include "hosts/posix/PosixLibrary.h"
#include "windowserver/LoadedWindowServerCalls.h"

#import <CoreFoundation/CoreFoundation.h>

int main()
{
    using namespace haloric;
    @autoreleasepool {
        MacApplication application; // first: AppKit's other classes need the NSApplication
        MacRunLoop runLoop;
        MacSerialQueues serialQueues;
        MacDisplayLinks displayLinks;
        MacVideoLinks videoLinks;
        MacWorkspace workspace;
        MacScreens screens;
        MacAccessibility accessibility;
        MacWindowInfoSource windowInfoSource;
        PosixLibrary windowServerLibrary(CFRelease); // transactions are Core Foundation objects
        LoadedWindowServerCalls windowServerCalls(windowServerLibrary);
        MacToolkitWindows toolkitWindows;
        MacInputMonitors input;
        MacAlerts alerts;
        MacStatusItems statusItems;
        MacFormWindows formWindows;
        MacHotkeys hotkeys;
        MacLoginItemService loginItems;
        MacUpdaterFramework updaterFramework;
        MacPanels panels;
        MacApplicationCatalog applicationCatalog;
        const MacBundle bundle;
        MacUserDefaults userDefaults;
        MacProcesses processes;
        MacLog log;

        HaloricProgram entry({.runLoop = runLoop,
                             .serialQueues = serialQueues,
                             .displayLinks = displayLinks,
                             .workspace = workspace,
                             .screens = screens,
                             .accessibility = accessibility,
                             .windowInfoSource = windowInfoSource,
                             .windowServerCalls = windowServerCalls,
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
                             .videoLinks = MacDisplayLinks::areAvailable() ? nullptr : &videoLinks});
        entry.run(); // returns only when the process ends
    }
    return 0;
}
