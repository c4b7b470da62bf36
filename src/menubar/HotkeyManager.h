// The one system-wide hotkey: Control-Option-Command-F. The whole process shares one manager, which the entry sequence
// makes. Main thread.
#pragma once

#include "foundation/Task.h"
#include "foundation/WeakAnchor.h"
#include "platform/Hotkeys.h"

namespace haloric {

class HotkeyManager {
public:
    // The platform's numbers: the F key of the ANSI layout, its masks for Command, Option and Control, "HLRC", and a
    // hotkey that is pressed, of the class "keyb".
    static constexpr std::uint32_t kCommandKey = 0x100;
    static constexpr std::uint32_t kOptionKey = 0x800;
    static constexpr std::uint32_t kControlKey = 0x1000;
    static constexpr Hotkey kHotkey{
        .keyCode = 3, .modifiers = kCommandKey + kOptionKey + kControlKey, .signature = 0x484C5243, .number = 1};
    static constexpr HotkeyEventType kEventType{.eventClass = 0x6B657962, .kind = 5};

    // Called on each press.
    Task onTrigger;

    // `hotkeys` outlives the manager. What is registered stays so when the manager goes, and then does nothing.
    explicit HotkeyManager(Hotkeys& hotkeys) : m_hotkeys(hotkeys) {}

    // Does nothing while the hotkey is registered. Failure is silent: the presses then never arrive.
    void enable();

    // Takes back what `enable` did, as far as it succeeded.
    void disable();

    bool isRegistered() const { return m_hotKey != HotkeyRef::none; }

private:
    void pressed();

    Hotkeys& m_hotkeys;
    HotkeyRef m_hotKey = HotkeyRef::none;
    EventHandlerRef m_handler = EventHandlerRef::none;
    WeakAnchor<HotkeyManager> m_anchor{*this};
};

} // namespace haloric
