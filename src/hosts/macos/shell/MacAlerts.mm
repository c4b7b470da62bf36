#include "hosts/macos/shell/MacAlerts.h"

#include "hosts/macos/base/MacConversions.h"

namespace haloric {

static_assert(NSAlertFirstButtonReturn == Alerts::kFirstButton);
static_assert(NSAlertStyleWarning == static_cast<std::uint64_t>(AlertStyle::warning));
static_assert(NSAlertStyleInformational == static_cast<std::uint64_t>(AlertStyle::informational));
static_assert(NSAlertStyleCritical == static_cast<std::uint64_t>(AlertStyle::critical));

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
    return [alert runModal];
}

void MacAlerts::runModalError(const PlatformError& error) { [[NSAlert alertWithError:nsErrorFrom(error)] runModal]; }

} // namespace haloric
