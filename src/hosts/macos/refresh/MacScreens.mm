#include "hosts/macos/refresh/MacScreens.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/base/MacNotifications.h"

#include <utility>

namespace haloric {
namespace {

std::optional<DisplayID> displayIDOf(NSScreen* screen)
{
    const id number = screen.deviceDescription[@"NSScreenNumber"];
    if (![number isKindOfClass:NSNumber.class])
        return std::nullopt;
    return DisplayID{[number unsignedIntValue]};
}

Screen screenFrom(NSScreen* screen)
{
    return {
        .frame = rectFrom(screen.frame),
        .displayID = displayIDOf(screen),
        .maximumFramesPerSecond = static_cast<double>(screen.maximumFramesPerSecond),
        .backingScale = screen.backingScaleFactor,
    };
}

} // namespace

MacScreens::MacScreens()
{
    read();
    const auto changed = [this] {
        read();
        m_changed.publish();
    };
    m_parametersChange = observeNotification(NSNotificationCenter.defaultCenter,
                                             NSApplicationDidChangeScreenParametersNotification, changed);
    m_wake = observeNotification(NSWorkspace.sharedWorkspace.notificationCenter, NSWorkspaceScreensDidWakeNotification,
                                 changed);
}

Subscription MacScreens::onParametersChange(Task handler) { return m_changed.subscribe(std::move(handler)); }

NSScreen* MacScreens::find(const Screen& screen)
{
    for (NSScreen* candidate in NSScreen.screens) {
        const bool same =
            screen.displayID ? displayIDOf(candidate) == screen.displayID : rectFrom(candidate.frame) == screen.frame;
        if (same)
            return candidate;
    }
    return nil;
}

void MacScreens::read()
{
    m_screens.clear();
    for (NSScreen* screen in NSScreen.screens)
        m_screens.push_back(screenFrom(screen));
}

} // namespace haloric
