#include "hosts/macos/windows/MacWorkspace.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/base/MacNotifications.h"

#include <cstdlib>
#include <utility>

namespace haloric {
namespace {

NSNotificationName nameOf(WorkspaceNotification notification)
{
    switch (notification) {
    case WorkspaceNotification::didActivateApplication:
        return NSWorkspaceDidActivateApplicationNotification;
    case WorkspaceNotification::activeSpaceDidChange:
        return NSWorkspaceActiveSpaceDidChangeNotification;
    case WorkspaceNotification::didTerminateApplication:
        return NSWorkspaceDidTerminateApplicationNotification;
    }
    std::abort(); // no other value exists
}

} // namespace

std::optional<FrontmostApplication> MacWorkspace::frontmostApplication() const
{
    NSRunningApplication* application = NSWorkspace.sharedWorkspace.frontmostApplication;
    if (!application)
        return std::nullopt;
    return FrontmostApplication{ProcessID{application.processIdentifier}, static_cast<bool>(application.hidden)};
}

std::optional<std::string> MacWorkspace::bundleIdentifier(ProcessID pid) const
{
    NSRunningApplication* application =
        [NSRunningApplication runningApplicationWithProcessIdentifier:static_cast<pid_t>(pid)];
    NSString* identifier = application.bundleIdentifier;
    return identifier ? std::optional(stringFrom(identifier)) : std::nullopt;
}

Subscription MacWorkspace::observe(WorkspaceNotification notification, Task handler)
{
    NSNotificationCenter* center = NSWorkspace.sharedWorkspace.notificationCenter;
    return observeNotification(center, nameOf(notification), std::move(handler));
}

void MacWorkspace::openURL(std::string_view url)
{
    NSURL* location = [NSURL URLWithString:nsStringFrom(url)];
    if (location)
        [NSWorkspace.sharedWorkspace openURL:location];
}

} // namespace haloric
