#include "hosts/macos/input/MacInputMonitors.h"

#include "hosts/macos/input/MacEventTap.h"

#import <AppKit/AppKit.h>

#include <utility>

namespace haloric {
namespace {

// The seam's event numbers and masks are the system's.
static_assert((maskOf(EventType::leftMouseDown) | maskOf(EventType::leftMouseUp) | maskOf(EventType::rightMouseDown) |
               maskOf(EventType::rightMouseUp) | maskOf(EventType::otherMouseDown) | maskOf(EventType::otherMouseUp)) ==
              0x600001E);
static_assert((NSEventMaskLeftMouseDown | NSEventMaskLeftMouseUp | NSEventMaskRightMouseDown | NSEventMaskRightMouseUp |
               NSEventMaskOtherMouseDown | NSEventMaskOtherMouseUp) == 0x600001E);
NSEventMask eventMask(EventMask mask) { return mask; }
EventType eventType(NSEvent* event) { return static_cast<EventType>(event.type); }

Subscription monitorSubscription(id monitor)
{
    return Subscription([monitor] { [NSEvent removeMonitor:monitor]; });
}

} // namespace

Subscription MacInputMonitors::addGlobalMouseMonitor(EventMask mask, MouseHandler handler)
{
    const auto take = ^(NSEvent* event) {
      const MouseHandler running = handler; // it may remove the monitor, and this block with it
      running(eventType(event));
    };
    const id monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:eventMask(mask) handler:take];
    return monitor ? monitorSubscription(monitor) : Subscription();
}

Subscription MacInputMonitors::addLocalMouseMonitor(EventMask mask, MouseHandler handler)
{
    const auto take = ^NSEvent*(NSEvent* event)
    {
        const MouseHandler running = handler;
        running(eventType(event));
        return event;
    };
    const id monitor = [NSEvent addLocalMonitorForEventsMatchingMask:eventMask(mask) handler:take];
    return monitor ? monitorSubscription(monitor) : Subscription();
}

std::uint64_t MacInputMonitors::pressedMouseButtons() const { return NSEvent.pressedMouseButtons; }

std::unique_ptr<EventTap> MacInputMonitors::createEventTap(const EventTapDescription& description, TapHandler handler)
{
    return MacEventTap::make(description, std::move(handler));
}

} // namespace haloric
