// A combination of keys in the server's terms: the key's code and the modifiers that must be held, and which modifiers
// do not matter because they lock. Pure.
#pragma once

#include "hosts/x11/input/X11KeyNames.h"

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

    // Finds the hotkey on a keyboard: `keyAt` tells the keys by their codes, `modifierKeys` is the modifier map as the
    // protocol gives it, the same number of key codes for each of the eight modifiers. A letter that no key bears is
    // the key at its place on the ANSI layout. Absent when the keyboard lacks the key or a modifier.
    static std::optional<X11KeyCombination> find(const Hotkey& hotkey,
                                                 const std::function<const X11Key&(std::uint8_t)>& keyAt,
                                                 std::span<const std::uint8_t> modifierKeys);

    // The modifiers with each choice of locks on, none first.
    std::vector<std::uint16_t> modifiersWithLocks() const;

    // Whether a key event with that code and state is a press of this combination; buttons and locks do not matter.
    bool matches(std::uint8_t pressedKeyCode, std::uint16_t state) const;
};

} // namespace haloric
