// Hotkeys as passive grabs of keys on the root window: while one is registered its combination reaches this program
// alone, whatever else has the focus, and also while Caps Lock, Num Lock or Scroll Lock is on. The combination follows
// changes of the keyboard's layout. A key that is held down counts as one press. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/WeakAnchor.h"
#include "hosts/x11/input/X11KeyCombination.h"
#include "hosts/x11/input/X11Keyboard.h"
#include "hosts/x11/server/X11Connection.h"
#include "platform/Hotkeys.h"
#include "platform/RunLoop.h"

#include <optional>
#include <vector>

namespace haloric {

class X11Hotkeys final : public Hotkeys {
public:
    // The one type of event that is delivered: a hotkey has been pressed.
    static constexpr HotkeyEventType kPressed{.eventClass = 0x6B657962, .kind = 5}; // "keyb"

    // Both outlive it.
    X11Hotkeys(X11Connection& connection, RunLoop& runLoop);
    ~X11Hotkeys() override;

    // Presses are offered to the handlers, the newest first, until one answers `kNoError`.
    EventHandlerRef installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler) override;
    void removeEventHandler(EventHandlerRef handler) override;

    // One round trip. `none`, and nothing is grabbed, when another program has the combination with any of the locks. A
    // combination that the keyboard lacks is registered, and grabbed once a layout has it.
    HotkeyRef registerHotkey(const Hotkey& hotkey, std::uint32_t options) override;
    void unregisterHotkey(HotkeyRef hotkey) override;

private:
    struct Handler {
        EventHandlerRef ref;
        HotkeyEventType type;
        std::function<std::int32_t()> call;
    };
    struct Registration {
        HotkeyRef ref;
        Hotkey hotkey;
        std::optional<X11KeyCombination> grabbed;
    };

    std::optional<X11KeyCombination> find(const Hotkey& hotkey) const;
    bool grab(const X11KeyCombination& combination);
    void ungrab(const X11KeyCombination& combination);
    void readModifierKeys();
    void noteMappingChange();
    void takeInMappingChange();
    void receivePress(const xcb_key_press_event_t& event);
    void deliver(HotkeyEventType type);

    X11Connection& m_connection;
    RunLoop& m_runLoop;
    X11Keyboard m_keyboard;
    std::vector<std::uint8_t> m_modifierKeys;
    std::vector<Handler> m_handlers;
    std::vector<Registration> m_registrations;
    std::uint64_t m_lastRef = 0;
    bool m_mappingChanged = false;
    std::optional<xcb_timestamp_t> m_releasedAt;
    std::uint8_t m_releasedKey = 0;
    Subscription m_presses;
    Subscription m_releases;
    Subscription m_mappingChanges;
    WeakAnchor<X11Hotkeys> m_weakAnchor{*this};
};

} // namespace haloric
