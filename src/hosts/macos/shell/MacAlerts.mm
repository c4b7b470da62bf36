#include "hosts/macos/shell/MacAlerts.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/shell/MacFocusReturn.h"

namespace haloric {

static_assert(NSAlertFirstButtonReturn == Alerts::kFirstButton);
static_assert(NSAlertStyleWarning == static_cast<std::uint64_t>(AlertStyle::warning));
static_assert(NSAlertStyleInformational == static_cast<std::uint64_t>(AlertStyle::informational));
static_assert(NSAlertStyleCritical == static_cast<std::uint64_t>(AlertStyle::critical));

namespace {

// An alert of an inactive application would open behind other windows, and macOS may refuse the activation.
NSModalResponse runInFront(NSAlert* alert)
{
    [NSApp activateIgnoringOtherApps:YES];
    alert.window.level = NSModalPanelWindowLevel;
    return [alert runModal];
}

void announceEnd() { [NSNotificationCenter.defaultCenter postNotificationName:kMacAlertDidEnd object:nil]; }

} // namespace

std::int64_t MacAlerts::runModal(const AlertModel& model)
{
    NSAlert* alert = [[NSAlert alloc] init];
    alert.messageText = nsStringFrom(model.messageText);
    alert.informativeText = nsStringFrom(model.informativeText);
    alert.alertStyle = static_cast<NSAlertStyle>(model.style);
    switch (model.icon) {
    case AlertIcon::application:
        alert.icon = NSApp.applicationIconImage;
        break;
    }
    for (const std::string& title : model.buttons)
        [alert addButtonWithTitle:nsStringFrom(title)];
    const NSModalResponse response = runInFront(alert);
    const bool leadsOn = response == NSAlertFirstButtonReturn && model.buttons.size() > 1;
    if (!leadsOn) // else the caller opens something that takes the focus
        announceEnd();
    return response;
}

void MacAlerts::runModalError(const PlatformError& error)
{
    runInFront([NSAlert alertWithError:nsErrorFrom(error)]);
    announceEnd();
}

} // namespace haloric
