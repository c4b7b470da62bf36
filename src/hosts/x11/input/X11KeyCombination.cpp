#include "hosts/x11/input/X11KeyCombination.h"

#include "platform/Hotkeys.h"
#include "platform/ModifierFlags.h"

#include <algorithm>

namespace haloric {

namespace {

// A modifier in the numbers of hotkeys and of key events.
struct HotkeyModifier {
    std::uint32_t inMask;
    std::uint64_t flag;
};

constexpr HotkeyModifier kModifiers[] = {{HotkeyModifiers::kCommand, ModifierFlags::kCommand},
                                         {HotkeyModifiers::kShift, ModifierFlags::kShift},
                                         {HotkeyModifiers::kOption, ModifierFlags::kOption},
                                         {HotkeyModifiers::kControl, ModifierFlags::kControl}};

constexpr std::size_t kModifierCount = 8;
constexpr std::uint16_t kModifierBits = 0xFF;
constexpr std::size_t kFirstKeyCode = 8; // of any X server

using KeyAt = std::function<const X11Key&(std::uint8_t)>;

// The bits of the modifiers that have a key for which `isOne` holds.
template <class Predicate>
std::uint16_t modifierBits(const KeyAt& keyAt, std::span<const std::uint8_t> modifierKeys, Predicate isOne)
{
    const std::size_t each = modifierKeys.size() / kModifierCount;
    std::uint16_t bits = 0;
    for (std::size_t modifier = 0; modifier < kModifierCount; ++modifier) {
        const auto keys = modifierKeys.subspan(modifier * each, each);
        if (std::ranges::any_of(keys, [&](std::uint8_t code) { return code != 0 && isOne(keyAt(code)); }))
            bits = static_cast<std::uint16_t>(bits | (1U << modifier));
    }
    return bits;
}

std::uint16_t lowestBit(std::uint16_t bits) { return static_cast<std::uint16_t>(bits & -bits); }

std::uint8_t findKey(std::int64_t number, const KeyAt& keyAt)
{
    for (std::size_t code = kFirstKeyCode; code < 256; ++code) {
        if (keyAt(static_cast<std::uint8_t>(code)).number == number)
            return static_cast<std::uint8_t>(code);
    }
    return keyCodeOfLetterPosition(number);
}

} // namespace

std::optional<X11KeyCombination> X11KeyCombination::find(const Hotkey& hotkey, const KeyAt& keyAt,
                                                         std::span<const std::uint8_t> modifierKeys)
{
    X11KeyCombination found;
    found.keyCode = findKey(hotkey.keyCode, keyAt);
    if (found.keyCode == 0)
        return {};
    for (const HotkeyModifier& modifier : kModifiers) {
        if ((hotkey.modifiers & modifier.inMask) == 0)
            continue;
        // A key may be mapped to two modifiers; holding it sets both. The lowest is the usual one.
        const auto bits =
            modifierBits(keyAt, modifierKeys, [&](const X11Key& key) { return key.modifier == modifier.flag; });
        if (bits == 0)
            return {};
        found.modifiers = static_cast<std::uint16_t>(found.modifiers | lowestBit(bits));
    }
    auto locks = modifierBits(keyAt, modifierKeys, [](const X11Key& key) { return key.isCapsLock || key.isOtherLock; });
    locks = static_cast<std::uint16_t>(locks & ~found.modifiers);
    for (; locks != 0; locks = static_cast<std::uint16_t>(locks & (locks - 1)))
        found.locks.push_back(lowestBit(locks));
    return found;
}

std::vector<std::uint16_t> X11KeyCombination::modifiersWithLocks() const
{
    std::vector<std::uint16_t> all{modifiers};
    for (const std::uint16_t lock : locks) {
        const std::size_t count = all.size();
        for (std::size_t index = 0; index < count; ++index)
            all.push_back(static_cast<std::uint16_t>(all[index] | lock));
    }
    return all;
}

bool X11KeyCombination::matches(std::uint8_t pressedKeyCode, std::uint16_t state) const
{
    std::uint16_t held = state & kModifierBits;
    for (const std::uint16_t lock : locks)
        held = static_cast<std::uint16_t>(held & ~lock);
    return pressedKeyCode == keyCode && held == modifiers;
}

} // namespace haloric
