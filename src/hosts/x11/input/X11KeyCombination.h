// A key combination for a key grab: the key code, the modifiers that must be held, and the lock modifiers that are
// ignored. Pure.
#pragma once

#include "hosts/x11/input/X11Keyboard.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace haloric {

struct Hotkey;

struct X11KeyCombination {
    std::uint8_t keyCode = 0;
    std::uint16_t modifiers = 0;
    std::vector<std::uint16_t> locks; // one bit each
    friend bool operator==(const X11KeyCombination&, const X11KeyCombination&) = default;

    // Finds the hotkey on a keyboard: `keyAt` returns the key at a code, `modifierKeys` is the modifier map as the
    // protocol has it, the same number of key codes for each of the eight modifiers. For a letter that no key has,
    // takes the key at its position on the ANSI layout. No value if the keyboard lacks the key or a modifier.
    static std::optional<X11KeyCombination> find(const Hotkey& hotkey,
                                                 const std::function<const X11Key&(std::uint8_t)>& keyAt,
                                                 std::span<const std::uint8_t> modifierKeys);

    // The modifiers combined with every subset of the locks, the empty one first.
    std::vector<std::uint16_t> modifiersWithLocks() const;

    // Whether a key event with that code and state is a press of this combination. Ignores buttons and locks.
    bool matches(std::uint8_t pressedKeyCode, std::uint16_t state) const;
};

} // namespace haloric
