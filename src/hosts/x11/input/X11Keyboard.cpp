#include "hosts/x11/input/X11Keyboard.h"

#include "platform/ModifierFlags.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

#define XK_LATIN1
#define XK_MISCELLANY
#include <X11/keysymdef.h>

namespace haloric {

namespace {

// a … z
constexpr std::array<std::uint8_t, 26> kLetters = {0,  11, 8,  2,  14, 3, 5,  4,  34, 38, 40, 37, 46,
                                                   45, 31, 35, 12, 15, 1, 17, 32, 9,  13, 7,  16, 6};
// 0 … 9
constexpr std::array<std::uint8_t, 10> kDigits = {29, 18, 19, 20, 21, 23, 22, 26, 28, 25};

struct NamedKey {
    std::uint32_t symbol;
    std::int64_t number;
};

constexpr NamedKey kOtherKeys[] = {
    {XK_equal, 24},      {XK_minus, 27},     {XK_bracketright, 30}, {XK_bracketleft, 33}, {XK_Return, 36},
    {XK_apostrophe, 39}, {XK_semicolon, 41}, {XK_backslash, 42},    {XK_comma, 43},       {XK_slash, 44},
    {XK_period, 47},     {XK_Tab, 48},       {XK_space, 49},        {XK_grave, 50},       {XK_BackSpace, 51},
    {XK_Escape, 53},     {XK_F1, 122},       {XK_F2, 120},          {XK_F3, 99},          {XK_F4, 118},
    {XK_F5, 96},         {XK_F6, 97},        {XK_F7, 98},           {XK_F8, 100},         {XK_F9, 101},
    {XK_F10, 109},       {XK_F11, 103},      {XK_F12, 111},         {XK_Home, 115},       {XK_Prior, 116},
    {XK_Delete, 117},    {XK_End, 119},      {XK_Next, 121},        {XK_Left, 123},       {XK_Right, 124},
    {XK_Down, 125},      {XK_Up, 126},
};

std::optional<std::int64_t> letterOrDigit(std::uint32_t symbol)
{
    if (symbol >= XK_a && symbol <= XK_z)
        return kLetters[symbol - XK_a];
    if (symbol >= XK_A && symbol <= XK_Z)
        return kLetters[symbol - XK_A];
    if (symbol >= XK_0 && symbol <= XK_9)
        return kDigits[symbol - XK_0];
    return {};
}

std::uint64_t modifierFlag(std::uint32_t symbol)
{
    switch (symbol) {
    case XK_Shift_L:
    case XK_Shift_R:
        return ModifierFlags::kShift;
    case XK_Control_L:
    case XK_Control_R:
        return ModifierFlags::kControl;
    case XK_Alt_L:
    case XK_Alt_R:
    case XK_Meta_L:
    case XK_Meta_R:
        return ModifierFlags::kOption; // Alt
    case XK_Super_L:
    case XK_Super_R:
        return ModifierFlags::kCommand; // Super
    case XK_Caps_Lock:
        return ModifierFlags::kCapsLock;
    default:
        return 0;
    }
}

struct LetterRow {
    std::string_view letters;
    std::uint8_t firstKeyCode;
};

constexpr LetterRow kLetterRows[] = {{"qwertyuiop", 24}, {"asdfghjkl", 38}, {"zxcvbnm", 52}};

constexpr std::size_t kSymbolsOfTwoLayouts = 4;

} // namespace

std::optional<std::int64_t> virtualKeyNumber(std::uint32_t keySymbol)
{
    if (const auto number = letterOrDigit(keySymbol))
        return number;
    const auto* const found = std::ranges::find(kOtherKeys, keySymbol, &NamedKey::symbol);
    return found == std::end(kOtherKeys) ? std::nullopt : std::optional(found->number);
}

std::uint8_t keyCodeOfLetterPosition(std::int64_t number)
{
    for (const LetterRow& row : kLetterRows) {
        for (std::size_t index = 0; index < row.letters.size(); ++index) {
            if (letterOrDigit(static_cast<std::uint32_t>(row.letters[index])) == number)
                return static_cast<std::uint8_t>(row.firstKeyCode + index);
        }
    }
    return 0;
}

X11Key keyWithSymbols(std::span<const std::uint32_t> keySymbols)
{
    X11Key key;
    if (keySymbols.empty())
        return key;
    key.modifier = modifierFlag(keySymbols.front());
    key.isCapsLock = key.modifier == ModifierFlags::kCapsLock;
    key.isOtherLock = keySymbols.front() == XK_Num_Lock || keySymbols.front() == XK_Scroll_Lock;
    key.isPrintScreen = keySymbols.front() == XK_Print;
    key.number = virtualKeyNumber(keySymbols.front());
    for (const auto symbol : keySymbols.first(std::min(keySymbols.size(), kSymbolsOfTwoLayouts))) {
        if (const auto number = letterOrDigit(symbol)) {
            key.number = number;
            break;
        }
    }
    return key;
}

X11Keyboard::X11Keyboard(X11Connection& connection) : m_connection(connection)
{
    m_events = connection.onEvent<xcb_mapping_notify_event_t>(XCB_MAPPING_NOTIFY, [this](const auto& event) {
        if (event.request != XCB_MAPPING_POINTER && !std::exchange(m_hasChanged, true))
            m_changes.publish();
    });
}

const X11Key& X11Keyboard::key(std::uint8_t keyCode)
{
    readIfChanged();
    return m_keys[keyCode];
}

std::span<const std::uint8_t> X11Keyboard::modifierKeys()
{
    readIfChanged();
    return m_modifierKeys;
}

void X11Keyboard::readIfChanged()
{
    if (!std::exchange(m_hasChanged, false))
        return;
    xcb_connection_t* raw = m_connection.raw();
    const xcb_setup_t* setup = &m_connection.setup();
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto keysCookie = xcb_get_keyboard_mapping(raw, setup->min_keycode, count);
    const auto modifiersCookie = xcb_get_modifier_mapping(raw);
    const XcbReply<xcb_get_keyboard_mapping_reply_t> keys(xcb_get_keyboard_mapping_reply(raw, keysCookie, nullptr));
    const XcbReply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(raw, modifiersCookie, nullptr));
    if (!keys || !modifiers)
        return;
    const std::span<const xcb_keysym_t> symbols(
        xcb_get_keyboard_mapping_keysyms(keys.get()),
        static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(keys.get())));
    const std::size_t each = keys->keysyms_per_keycode;
    m_keys.fill({});
    for (std::size_t index = 0; each > 0 && (index + 1) * each <= symbols.size(); ++index)
        m_keys.at(setup->min_keycode + index) = keyWithSymbols(symbols.subspan(index * each, each));
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    m_modifierKeys.assign(codes, codes + xcb_get_modifier_mapping_keycodes_length(modifiers.get()));
}

} // namespace haloric
