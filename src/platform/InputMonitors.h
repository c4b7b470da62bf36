// Mouse monitors, the state of the mouse buttons, and the listen-only event tap. Main thread. No monitor can change
// or hold up an event.
#pragma once

#include "foundation/Subscription.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace haloric {

// The platform's event numbers.
enum class EventType : std::uint32_t {
    leftMouseDown = 1,
    leftMouseUp = 2,
    rightMouseDown = 3,
    rightMouseUp = 4,
    keyDown = 10,
    otherMouseDown = 25,
    otherMouseUp = 26,
    tapDisabledByTimeout = 0xFFFFFFFE,
    tapDisabledByUserInput = 0xFFFFFFFF,
};

// One bit for each event number below 32.
using EventMask = std::uint32_t;
constexpr EventMask maskOf(EventType type) { return EventMask{1} << static_cast<std::uint32_t>(type); }

struct TapEvent {
    EventType type = EventType::keyDown;
    std::int64_t keyCode = 0; // virtual key number; keyDown only
    std::uint64_t flags = 0;  // modifier flags: Shift 0x20000, Control 0x40000, Option 0x80000, Command 0x100000
};

enum class TapLocation : std::uint32_t { hid = 0, session = 1 };
enum class TapPlacement : std::uint32_t { headInsert = 0, tailAppend = 1 };
enum class TapOptions : std::uint32_t { defaultTap = 0, listenOnly = 1 };

struct EventTapDescription {
    TapLocation location = TapLocation::session;
    TapPlacement placement = TapPlacement::headInsert;
    TapOptions options = TapOptions::listenOnly;
    EventMask mask = 0;
    friend bool operator==(const EventTapDescription&, const EventTapDescription&) = default;
};

// An installed tap; destroying it frees it without disabling it first.
class EventTap {
public:
    virtual ~EventTap() = default;
    virtual void addToMainRunLoop() = 0;
    virtual void enable() = 0;
};

class InputMonitors {
public:
    using MouseHandler = std::function<void(EventType)>;
    using TapHandler = std::function<void(const TapEvent&)>;

    virtual ~InputMonitors() = default;

    // Events that go to other applications.
    virtual Subscription addGlobalMouseMonitor(EventMask mask, MouseHandler handler) = 0;

    // Events that go to this application's own windows; they arrive there unchanged.
    virtual Subscription addLocalMouseMonitor(EventMask mask, MouseHandler handler) = 0;

    // One bit a pressed button, 0 when none is. Costs no allocation.
    virtual std::uint64_t pressedMouseButtons() const = 0;

    // Null when the process may not watch input. The handler runs on the main thread.
    virtual std::unique_ptr<EventTap> createEventTap(const EventTapDescription& description, TapHandler handler) = 0;
};

} // namespace haloric
