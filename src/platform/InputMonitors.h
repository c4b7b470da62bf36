// Mouse monitors, the state of the mouse buttons, and the listen-only event tap. No monitor can change or delay an
// event. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "platform/ModifierFlags.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace haloric {

// With the numbers of macOS.
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
    std::uint64_t flags = 0;  // ModifierFlags
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

// An installed tap. Destroying it removes it without disabling it first.
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

    // Events that go to this application's own windows, which receive them unchanged.
    virtual Subscription addLocalMouseMonitor(EventMask mask, MouseHandler handler) = 0;

    // One bit per pressed button. Does not allocate.
    virtual std::uint64_t pressedMouseButtons() const = 0;

    // Null if the process may not observe input. The handler runs on the main thread.
    virtual std::unique_ptr<EventTap> createEventTap(const EventTapDescription& description, TapHandler handler) = 0;
};

} // namespace haloric
