// The program on macOS: its adapters, and the entry sequence that they are handed to.
#include "app/ApplicationPlatform.h"
#include "app/EntrySequence.h"
#include "hosts/macos/MacAccessibility.h"
#include "hosts/macos/MacAlerts.h"
#include "hosts/macos/MacApplication.h"
#include "hosts/macos/MacApplicationCatalog.h"
#include "hosts/macos/MacBundle.h"
#include "hosts/macos/MacDisplayLinks.h"
#include "hosts/macos/MacFormWindows.h"
#include "hosts/macos/MacHotkeys.h"
#include "hosts/macos/MacInputMonitors.h"
#include "hosts/macos/MacLog.h"
#include "hosts/macos/MacLoginItemService.h"
#include "hosts/macos/MacPanels.h"
#include "hosts/macos/MacProcesses.h"
#include "hosts/macos/MacRunLoop.h"
#include "hosts/macos/MacScreens.h"
#include "hosts/macos/MacSerialQueues.h"
#include "hosts/macos/MacStatusItems.h"
#include "hosts/macos/MacToolkitWindows.h"
#include "hosts/macos/MacUpdaterFramework.h"
#include "hosts/macos/MacUserDefaults.h"
#include "hosts/macos/MacWindowInfoSource.h"
#include "hosts/macos/MacWorkspace.h"
#include "hosts/posix/PosixLibrary.h"

#import <CoreFoundation/CoreFoundation.h>

int main()
{
    using namespace haloric;
    @autoreleasepool {
        MacApplication application; // first: AppKit's other classes expect the application object
        MacRunLoop runLoop;
        MacSerialQueues serialQueues;
        MacDisplayLinks displayLinks;
        MacWorkspace workspace;
        MacScreens screens;
        MacAccessibility accessibility;
        MacWindowInfoSource windowInfoSource;
        PosixLibrary windowServerLibrary(CFRelease); // transactions are Core Foundation objects
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
                             .log = log});
        entry.run(); // ends with the process
    }
    return 0;
}
