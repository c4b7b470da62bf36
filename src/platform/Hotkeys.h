// System-wide hotkeys: a handler for the presses, and the registration of a combination of keys. Main thread.
#pragma once

#include <cstdint>
#include <functional>

namespace haloric {

enum class EventHandlerRef : std::uint64_t { none = 0 };
enum class HotkeyRef : std::uint64_t { none = 0 };

struct HotkeyEventType {
    std::uint32_t eventClass = 0; // a four-character code
    std::uint32_t kind = 0;
    friend bool operator==(const HotkeyEventType&, const HotkeyEventType&) = default;
};

struct Hotkey {
    std::uint32_t keyCode = 0;   // the platform's virtual key code
    std::uint32_t modifiers = 0; // the platform's modifier mask
    std::uint32_t signature = 0; // a four-character code: whose hotkey it is
    std::uint32_t number = 0;    // which of them
    friend bool operator==(const Hotkey&, const Hotkey&) = default;
};

class Hotkeys {
public:
    // The platform's "no error"; a handler that answers it has consumed the event.
    static constexpr std::int32_t kNoError = 0;

    virtual ~Hotkeys() = default;

    // Calls `handler` for events of that type that reach the application. `none` when it could not be installed.
    virtual EventHandlerRef installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler) = 0;
    virtual void removeEventHandler(EventHandlerRef handler) = 0;

    // From now on the combination reaches this application, whichever has focus. `none` when it could not be
    // registered, for instance because another program has it.
    virtual HotkeyRef registerHotkey(const Hotkey& hotkey, std::uint32_t options) = 0;
    virtual void unregisterHotkey(HotkeyRef hotkey) = 0;
};

} // namespace haloric
