// Hotkeys as passive grabs of keys on the root window: while one is registered, only this program receives its
// combination, whichever window has the focus, and also while Caps Lock, Num Lock or Scroll Lock is on. The grab
// follows changes of the keyboard's layout. A key that is held down counts as one press. Main thread.
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
    // All outlive it.
    X11Hotkeys(X11Connection& connection, X11Keyboard& keyboard, RunLoop& runLoop);
    ~X11Hotkeys() override;

    // The only event type that is delivered is kPressed. A press calls its handlers, the newest first, until one
    // returns `kNoError`.
    EventHandlerRef installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler) override;
    void removeEventHandler(EventHandlerRef handler) override;

    // One round trip. Returns `none` and grabs nothing if another program has grabbed the combination with any of the
    // locks. A combination that the keyboard lacks is registered, and grabbed once a layout has it.
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
    void keyboardChanged();
    void updateGrabs();
    void receivePress(const xcb_key_press_event_t& event);
    void deliver(HotkeyEventType type);

    X11Connection& m_connection;
    X11Keyboard& m_keyboard;
    RunLoop& m_runLoop;
    std::vector<Handler> m_handlers;
    std::vector<Registration> m_registrations;
    std::uint64_t m_lastRef = 0;
    std::optional<xcb_timestamp_t> m_releasedAt;
    std::uint8_t m_releasedKey = 0;
    Subscription m_presses;
    Subscription m_releases;
    Subscription m_keyboardChanges;
    WeakAnchor<X11Hotkeys> m_weakAnchor{*this};
};

} // namespace haloric
