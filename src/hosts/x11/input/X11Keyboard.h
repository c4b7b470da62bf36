// The server's keyboard mapping: what the keys mean by their codes, and which of them set the modifiers. One for the
// connection, shared by raw input and hotkeys. A change of the layout sends several events; the mapping is read once,
// when it is next used. Main thread.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "hosts/x11/server/X11Connection.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace haloric {

// A key in the terms of macOS: its virtual key number and modifier flag. The numbers are those of the published key
// table of macOS (ANSI layout).
struct X11Key {
    std::optional<std::int64_t> number; // virtual key number; no value for a key without one
    std::uint64_t modifier = 0;         // the flag that it sets while it is held; 0 for most keys
    bool isCapsLock = false;            // each press toggles its flag
    bool isOtherLock = false;           // Num Lock, Scroll Lock: modifiers without a flag
    bool isPrintScreen = false;
    friend bool operator==(const X11Key&, const X11Key&) = default;
};

constexpr std::int64_t kKeyNumberOf5 = 23;

// The number of a key symbol.
std::optional<std::int64_t> virtualKeyNumber(std::uint32_t keySymbol);

// The key code at the position where the ANSI layout has the letter of that number; 0 for other numbers.
std::uint8_t keyCodeOfLetterPosition(std::int64_t number);

// The key with these symbols, in the order of the core keyboard mapping (plain, shifted, then the same for a second
// layout). A letter or digit at any place determines the number, so that digits on the shifted level and letters of a
// second, Latin layout are found.
X11Key keyWithSymbols(std::span<const std::uint32_t> keySymbols);

class X11Keyboard {
public:
    static constexpr std::size_t kKeyCodes = 256;

    // The connection outlives it.
    explicit X11Keyboard(X11Connection& connection);

    // Both as of the last mapping event. One round trip for the first call after a change, none otherwise.
    const X11Key& key(std::uint8_t keyCode);
    std::span<const std::uint8_t> modifierKeys(); // as the protocol has it: eight groups of the same size

    // Called inside the event after which the mapping has to be read again; not for further events until it is read.
    Subscription onChange(Task handler) { return m_changes.subscribe(std::move(handler)); }

private:
    void readIfChanged();

    X11Connection& m_connection;
    std::array<X11Key, kKeyCodes> m_keys;
    std::vector<std::uint8_t> m_modifierKeys;
    bool m_hasChanged = true; // since it was read
    Publisher<> m_changes;
    Subscription m_events;
};

} // namespace haloric
