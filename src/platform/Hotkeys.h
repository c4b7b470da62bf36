// System-wide hotkeys: handlers for the presses, and the registration of key combinations. Main thread.
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

// The bits of a hotkey's modifiers, with the numbers of macOS. Events use ModifierFlags instead.
struct HotkeyModifiers {
    static constexpr std::uint32_t kCommand = 0x100;
    static constexpr std::uint32_t kShift = 0x200;
    static constexpr std::uint32_t kOption = 0x800;
    static constexpr std::uint32_t kControl = 0x1000;
};

struct Hotkey {
    std::uint32_t keyCode = 0;   // virtual key code of macOS
    std::uint32_t modifiers = 0; // HotkeyModifiers
    std::uint32_t signature = 0; // a four-character code for the program that registers it
    std::uint32_t number = 0;    // among the hotkeys of that program
    friend bool operator==(const Hotkey&, const Hotkey&) = default;
};

class Hotkeys {
public:
    // A handler that returns this has consumed the event.
    static constexpr std::int32_t kNoError = 0;

    // A hotkey was pressed, with the numbers of macOS: the class "keyb" and its kind.
    static constexpr HotkeyEventType kPressed{.eventClass = 0x6B657962, .kind = 5};

    virtual ~Hotkeys() = default;

    // Calls `handler` for events of that type that reach the application, the newest handler first, until one has
    // consumed the event. A handler may remove handlers and hotkeys, itself among them. `none` if it could not be
    // installed.
    virtual EventHandlerRef installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler) = 0;
    virtual void removeEventHandler(EventHandlerRef handler) = 0;

    // Presses of the combination now reach this application, whichever application has the focus. `none` if it could
    // not be registered, for instance because this program or another one has registered it.
    virtual HotkeyRef registerHotkey(const Hotkey& hotkey, std::uint32_t options) = 0;
    virtual void unregisterHotkey(HotkeyRef hotkey) = 0;
};

} // namespace haloric
