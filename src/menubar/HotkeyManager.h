// The one system-wide hotkey: Control-Option-Command-F. The whole process shares one manager, made by
// HaloricProgram. Main thread.
#pragma once

#include "foundation/Task.h"
#include "foundation/WeakAnchor.h"
#include "platform/Hotkeys.h"

namespace haloric {

class HotkeyManager {
public:
    // The F key of the ANSI layout, and the signature "HLRC".
    static constexpr Hotkey kHotkey{.keyCode = 3,
                                    .modifiers = HotkeyModifiers::kCommand | HotkeyModifiers::kOption |
                                                 HotkeyModifiers::kControl,
                                    .signature = 0x484C5243,
                                    .number = 1};

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
