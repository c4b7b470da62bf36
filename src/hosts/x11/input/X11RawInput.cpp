#include "hosts/x11/input/X11RawInput.h"

#include <algorithm>
#include <optional>

#include <xcb/xinput.h>

namespace haloric {

namespace {

struct Button {
    unsigned bit;
    EventType down;
    EventType up;
};

// The button of a logical number; 4 to 7 are the wheel.
std::optional<Button> button(std::uint32_t logical)
{
    constexpr std::uint32_t kFirstWheel = 4;
    constexpr std::uint32_t kLastWheel = 7;
    constexpr std::uint32_t kLast = 32;
    if (logical == 1)
        return Button{0, EventType::leftMouseDown, EventType::leftMouseUp};
    if (logical == 3)
        return Button{1, EventType::rightMouseDown, EventType::rightMouseUp};
    if (logical == 2)
        return Button{2, EventType::otherMouseDown, EventType::otherMouseUp};
    if (logical == 0 || logical > kLast || (logical >= kFirstWheel && logical <= kLastWheel))
        return {};
    return Button{logical - (kLastWheel - 2), EventType::otherMouseDown, EventType::otherMouseUp};
}

struct EventSelection { // the layout of the request
    xcb_input_event_mask_t head;
    std::uint32_t mask;
};

} // namespace

X11RawInput::X11RawInput(X11Connection& connection, X11Keyboard& keyboard)
    : m_connection(connection),
      m_keyboard(keyboard),
      m_available(selectEvents())
{
    if (!m_available)
        return; // no releases would follow for what is held now
    readButtonMapping();
    readState();
    m_rawEvents =
        connection.onGenericEvent(&xcb_input_id, [this](const xcb_generic_event_t& event) { receive(event); });
    m_mappingChanges = connection.onEvent<xcb_mapping_notify_event_t>(XCB_MAPPING_NOTIFY, [this](const auto& event) {
        if (event.request == XCB_MAPPING_POINTER)
            readButtonMapping();
    });
}

bool X11RawInput::selectEvents()
{
    if (!m_connection.has(&xcb_input_id))
        return false;
    xcb_connection_t* raw = m_connection.raw();
    // From 2.1 on, raw events also arrive during grabs of other clients.
    const XcbReply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(raw, xcb_input_xi_query_version(raw, 2, 2), nullptr));
    if (!version || version->major_version < 2 || (version->major_version == 2 && version->minor_version < 1))
        return false;
    EventSelection selections[] = {
        {{XCB_INPUT_DEVICE_ALL_MASTER, 1},
         XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE |
             XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE},
        {{XCB_INPUT_DEVICE_ALL, 1}, XCB_INPUT_XI_EVENT_MASK_HIERARCHY},
    };
    for (const auto& selection : selections)
        xcb_input_xi_select_events(raw, m_connection.root(), 1, &selection.head);
    return true;
}

void X11RawInput::readState()
{
    xcb_connection_t* raw = m_connection.raw();
    const auto pointerCookie = xcb_query_pointer(raw, m_connection.root());
    const auto keysCookie = xcb_query_keymap(raw);
    const XcbReply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(raw, pointerCookie, nullptr));
    const XcbReply<xcb_query_keymap_reply_t> keys(xcb_query_keymap_reply(raw, keysCookie, nullptr));
    if (!pointer || !keys)
        return;
    constexpr std::uint32_t kButtonsInMask = 3; // 4 and 5 are the wheel
    m_pressedButtons = 0;
    for (std::uint32_t logical = 1; logical <= kButtonsInMask; ++logical) {
        if ((pointer->mask & (XCB_BUTTON_MASK_1 << (logical - 1))) != 0)
            m_pressedButtons |= std::uint64_t{1} << button(logical)->bit;
    }
    m_capsLocked = (pointer->mask & XCB_MOD_MASK_LOCK) != 0;
    for (std::size_t code = 0; code < X11Keyboard::kKeyCodes; ++code)
        m_heldKeys[code] = (keys->keys[code / 8] >> (code % 8) & 1) != 0;
}

void X11RawInput::readButtonMapping()
{
    xcb_connection_t* raw = m_connection.raw();
    const XcbReply<xcb_get_pointer_mapping_reply_t> reply(
        xcb_get_pointer_mapping_reply(raw, xcb_get_pointer_mapping(raw), nullptr));
    if (!reply)
        return;
    const std::uint8_t* map = xcb_get_pointer_mapping_map(reply.get());
    m_buttonMapping.assign(map, map + xcb_get_pointer_mapping_map_length(reply.get()));
}

void X11RawInput::receive(const xcb_generic_event_t& event)
{
    // Raw button and key events have the same layout.
    const auto& raw = eventAs<xcb_input_raw_button_press_event_t>(event);
    switch (raw.event_type) {
    case XCB_INPUT_RAW_BUTTON_PRESS:
    case XCB_INPUT_RAW_BUTTON_RELEASE:
        receiveButton(raw.detail, raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS);
        break;
    case XCB_INPUT_RAW_KEY_PRESS:
    case XCB_INPUT_RAW_KEY_RELEASE:
        if (raw.detail < X11Keyboard::kKeyCodes)
            receiveKey(static_cast<std::uint8_t>(raw.detail), raw.event_type == XCB_INPUT_RAW_KEY_PRESS);
        break;
    case XCB_INPUT_HIERARCHY:
        readState();
        break;
    default:
        break;
    }
}

void X11RawInput::receiveButton(std::uint32_t physicalButton, bool pressed)
{
    // Raw events carry the physical button; the pointer mapping swaps buttons for left-handed use.
    const bool mapped = physicalButton >= 1 && physicalButton <= m_buttonMapping.size();
    const auto known = button(mapped ? m_buttonMapping[physicalButton - 1] : physicalButton);
    if (!known)
        return;
    const std::uint64_t bit = std::uint64_t{1} << known->bit;
    m_pressedButtons = pressed ? m_pressedButtons | bit : m_pressedButtons & ~bit;
    m_buttons.publish(pressed ? known->down : known->up);
}

void X11RawInput::receiveKey(std::uint8_t keyCode, bool pressed)
{
    m_heldKeys[keyCode] = pressed;
    if (!pressed)
        return;
    const X11Key& key = m_keyboard.key(keyCode);
    if (key.isCapsLock)
        m_capsLocked = !m_capsLocked;
    const std::uint64_t held = heldModifiers();
    const bool isSuperHeld = (held & ModifierFlags::kCommand) != 0;
    if (key.isPrintScreen && !isSuperHeld) {
        // It opens the desktop's screenshot interface, alone or with Shift, Alt or Control, as Command-Shift-5 does on
        // macOS. There, Option keeps the interface closed.
        constexpr std::uint64_t kChord = ModifierFlags::kCommand | ModifierFlags::kShift;
        m_keyDowns.publish({EventType::keyDown, kKeyNumberOf5, (held & ~ModifierFlags::kOption) | kChord});
    } else if (key.number) {
        m_keyDowns.publish({EventType::keyDown, *key.number, held & ~ModifierFlags::kCommand});
    }
}

std::uint64_t X11RawInput::heldModifiers() const
{
    std::uint64_t flags = m_capsLocked ? ModifierFlags::kCapsLock : 0;
    for (std::size_t code = 0; code < X11Keyboard::kKeyCodes; ++code) {
        const X11Key& key = m_keyboard.key(static_cast<std::uint8_t>(code));
        if (m_heldKeys[code] && !key.isCapsLock)
            flags |= key.modifier;
    }
    return flags;
}

} // namespace haloric
