#include "hosts/macos/input/MacInputMonitors.h"

#include "hosts/macos/base/CFOwned.h"
#include "hosts/macos/base/OwnPool.h"

#import <AppKit/AppKit.h>
#import <CoreGraphics/CoreGraphics.h>

#include <utility>

namespace haloric {
namespace {

template <class Enumerator>
constexpr std::uint32_t numberOf(Enumerator enumerator)
{
    return static_cast<std::uint32_t>(enumerator);
}

// The numbers and masks of platform/InputMonitors.h are those of macOS.
static_assert((maskOf(EventType::leftMouseDown) | maskOf(EventType::leftMouseUp) | maskOf(EventType::rightMouseDown) |
               maskOf(EventType::rightMouseUp) | maskOf(EventType::otherMouseDown) | maskOf(EventType::otherMouseUp)) ==
              0x600001E);
static_assert((NSEventMaskLeftMouseDown | NSEventMaskLeftMouseUp | NSEventMaskRightMouseDown | NSEventMaskRightMouseUp |
               NSEventMaskOtherMouseDown | NSEventMaskOtherMouseUp) == 0x600001E);
static_assert(numberOf(kCGSessionEventTap) == numberOf(TapLocation::session));
static_assert(numberOf(kCGHeadInsertEventTap) == numberOf(TapPlacement::headInsert));
static_assert(numberOf(kCGEventTapOptionListenOnly) == numberOf(TapOptions::listenOnly));
static_assert(numberOf(kCGEventTapDisabledByTimeout) == numberOf(EventType::tapDisabledByTimeout));
static_assert(numberOf(kCGEventTapDisabledByUserInput) == numberOf(EventType::tapDisabledByUserInput));
static_assert(kCGEventFlagMaskAlphaShift == ModifierFlags::kCapsLock);
static_assert(kCGEventFlagMaskShift == ModifierFlags::kShift);
static_assert(kCGEventFlagMaskControl == ModifierFlags::kControl);
static_assert(kCGEventFlagMaskAlternate == ModifierFlags::kOption);
static_assert(kCGEventFlagMaskCommand == ModifierFlags::kCommand);
static_assert((maskOf(EventType::keyDown) | maskOf(EventType::leftMouseUp)) == 1028);
static_assert((CGEventMaskBit(kCGEventKeyDown) | CGEventMaskBit(kCGEventLeftMouseUp)) == 1028);

NSEventMask eventMask(EventMask mask) { return mask; }
EventType eventType(NSEvent* event) { return static_cast<EventType>(event.type); }

Subscription monitorSubscription(id monitor)
{
    return Subscription([monitor] { [NSEvent removeMonitor:monitor]; });
}

// A listen-only event tap with its source in the main run loop's common modes. Events pass it unchanged.
class MacEventTap final : public EventTap {
public:
    // Null when the process may not watch input.
    static std::unique_ptr<MacEventTap> make(const EventTapDescription& description, InputMonitors::TapHandler handler);

    ~MacEventTap() override;
    MacEventTap(const MacEventTap&) = delete;
    MacEventTap& operator=(const MacEventTap&) = delete;

    void addToMainRunLoop() override;
    void enable() override;

private:
    explicit MacEventTap(InputMonitors::TapHandler handler);

    static CGEventRef take(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* context);

    const InputMonitors::TapHandler m_handler;
    CFOwned<CFMachPortRef> m_port;
};

std::unique_ptr<MacEventTap> MacEventTap::make(const EventTapDescription& description,
                                               InputMonitors::TapHandler handler)
{
    std::unique_ptr<MacEventTap> tap(new MacEventTap(std::move(handler)));
    tap->m_port = CFOwned<CFMachPortRef>(CGEventTapCreate(
        static_cast<CGEventTapLocation>(description.location), static_cast<CGEventTapPlacement>(description.placement),
        static_cast<CGEventTapOptions>(description.options), description.mask, &take, tap.get()));
    return tap->m_port ? std::move(tap) : nullptr;
}

MacEventTap::MacEventTap(InputMonitors::TapHandler handler) : m_handler(std::move(handler)) {}

MacEventTap::~MacEventTap()
{
    // The run loop keeps the port through its source; invalidating the port ends its callbacks.
    if (m_port)
        CFMachPortInvalidate(m_port.get());
}

void MacEventTap::addToMainRunLoop()
{
    const CFOwned<CFRunLoopSourceRef> source(CFMachPortCreateRunLoopSource(kCFAllocatorDefault, m_port.get(), 0));
    CFRunLoopAddSource(CFRunLoopGetMain(), source.get(), kCFRunLoopCommonModes);
}

void MacEventTap::enable() { CGEventTapEnable(m_port.get(), true); }

CGEventRef MacEventTap::take(CGEventTapProxy, CGEventType type, CGEventRef event, void* context)
{
    TapEvent taken;
    taken.type = static_cast<EventType>(type);
    if (type == kCGEventKeyDown) {
        taken.keyCode = CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode);
        taken.flags = CGEventGetFlags(event);
    }
    const auto handler = static_cast<const MacEventTap*>(context)->m_handler;
    withOwnPool([&] { handler(taken); });
    return event;
}

} // namespace

Subscription MacInputMonitors::addGlobalMouseMonitor(EventMask mask, MouseHandler handler)
{
    const auto take = ^(NSEvent* event) {
      const MouseHandler running = handler; // it may remove the monitor, and this block with it
      withOwnPool([&] { running(eventType(event)); });
    };
    const id monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:eventMask(mask) handler:take];
    return monitor ? monitorSubscription(monitor) : Subscription();
}

Subscription MacInputMonitors::addLocalMouseMonitor(EventMask mask, MouseHandler handler)
{
    const auto take = ^NSEvent*(NSEvent* event)
    {
        const MouseHandler running = handler;
        withOwnPool([&] { running(eventType(event)); });
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
