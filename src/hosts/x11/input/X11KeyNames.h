// The virtual key numbers and modifier flags of macOS for the key symbols of X. Pure tables; the numbers are those of
// the published key table of macOS (ANSI layout).
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace haloric {

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

} // namespace haloric
