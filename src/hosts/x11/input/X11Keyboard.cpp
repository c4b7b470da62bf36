#include "hosts/x11/input/X11Keyboard.h"

#include <utility>

namespace haloric {

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
    const xcb_setup_t* setup = xcb_get_setup(raw);
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
