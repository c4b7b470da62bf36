#include "hosts/macos/input/MacEventTap.h"

#include "hosts/macos/base/OwnPool.h"

#include <utility>

namespace haloric {
namespace {

template <class Enumerator>
constexpr std::uint32_t numberOf(Enumerator enumerator)
{
    return static_cast<std::uint32_t>(enumerator);
}

// The seam's numbers are the system's.
static_assert(numberOf(kCGSessionEventTap) == numberOf(TapLocation::session));
static_assert(numberOf(kCGHeadInsertEventTap) == numberOf(TapPlacement::headInsert));
static_assert(numberOf(kCGEventTapOptionListenOnly) == numberOf(TapOptions::listenOnly));
static_assert(numberOf(kCGEventTapDisabledByTimeout) == numberOf(EventType::tapDisabledByTimeout));
static_assert(numberOf(kCGEventTapDisabledByUserInput) == numberOf(EventType::tapDisabledByUserInput));
static_assert((maskOf(EventType::keyDown) | maskOf(EventType::leftMouseUp)) == 1028);
static_assert((CGEventMaskBit(kCGEventKeyDown) | CGEventMaskBit(kCGEventLeftMouseUp)) == 1028);

} // namespace

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
    // The run loop keeps the port through its source; only an invalid port calls nobody any more.
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

} // namespace haloric
