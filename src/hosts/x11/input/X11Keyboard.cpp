#include "hosts/x11/input/X11Keyboard.h"

#include <algorithm>

namespace haloric {

X11Keyboard::X11Keyboard(X11Connection& connection) : m_connection(connection)
{
    m_mappingChanges = connection.onEvent(XCB_MAPPING_NOTIFY, [this](const xcb_generic_event_t& event) {
        if (reinterpret_cast<const xcb_mapping_notify_event_t&>(event).request == XCB_MAPPING_KEYBOARD)
            read();
    });
    read();
}

void X11Keyboard::read()
{
    xcb_connection_t* raw = m_connection.raw();
    const xcb_setup_t* setup = xcb_get_setup(raw);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(raw, setup->min_keycode, count);
    const XcbReply<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(raw, cookie, nullptr));
    if (!reply)
        return;
    const std::span<const xcb_keysym_t> symbols(
        xcb_get_keyboard_mapping_keysyms(reply.get()),
        static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(reply.get())));
    const std::size_t each = reply->keysyms_per_keycode;
    m_keys.fill({});
    for (std::size_t index = 0; each > 0 && (index + 1) * each <= symbols.size(); ++index)
        m_keys.at(setup->min_keycode + index) = keyWithSymbols(symbols.subspan(index * each, each));
}

} // namespace haloric
