// What the keys of an X keyboard are called on the platform whose terms the program speaks: virtual key numbers and
// modifier flags. Pure tables; the figures are those of the platform's published key table (ANSI layout).
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace haloric {

struct X11Key {
    std::optional<std::int64_t> number; // virtual key number; absent for a key that has none here
    std::uint64_t modifier = 0;         // the flag that it sets while it is held; 0 for most keys
    bool isCapsLock = false;            // sets its flag by turns
    bool isOtherLock = false;           // Num Lock, Scroll Lock: modifiers that no flag tells of
    bool isPrintScreen = false;
    friend bool operator==(const X11Key&, const X11Key&) = default;
};

constexpr std::uint64_t kCapsLockFlag = 0x10000;
constexpr std::uint64_t kShiftFlag = 0x20000;
constexpr std::uint64_t kControlFlag = 0x40000;
constexpr std::uint64_t kOptionFlag = 0x80000;   // Alt
constexpr std::uint64_t kCommandFlag = 0x100000; // Super

constexpr std::int64_t kKeyNumberOf5 = 23;

// The number of a key symbol.
std::optional<std::int64_t> virtualKeyNumber(std::uint32_t keySymbol);

// The key where the ANSI layout has the letter of that number; 0 for other numbers. X numbers keys by their place.
std::uint8_t keyCodeOfLetterPosition(std::int64_t number);

// The key that bears these symbols, in the order of the core keyboard mapping (plain, shifted, then the same for a
// second layout). A letter or digit on any of them names the key, so that the digits of layouts that have them on the
// shifted level are found, and the letters of a second, Latin layout.
X11Key keyWithSymbols(std::span<const std::uint32_t> keySymbols);

} // namespace haloric
