#include "hosts/x11/input/X11Hotkeys.h"

#include <algorithm>

namespace haloric {

X11Hotkeys::X11Hotkeys(X11Connection& connection, RunLoop& runLoop)
    : m_connection(connection),
      m_runLoop(runLoop),
      m_keyboard(connection)
{
    m_presses = connection.onEvent(XCB_KEY_PRESS, [this](const xcb_generic_event_t& event) {
        receivePress(reinterpret_cast<const xcb_key_press_event_t&>(event));
    });
    m_releases = connection.onEvent(XCB_KEY_RELEASE, [this](const xcb_generic_event_t& event) {
        const auto& release = reinterpret_cast<const xcb_key_release_event_t&>(event);
        m_releasedAt = release.time;
        m_releasedKey = release.detail;
    });
    m_mappingChanges = connection.onEvent(XCB_MAPPING_NOTIFY, [this](const xcb_generic_event_t& event) {
        if (reinterpret_cast<const xcb_mapping_notify_event_t&>(event).request != XCB_MAPPING_POINTER)
            noteMappingChange();
    });
    readModifierKeys();
}

X11Hotkeys::~X11Hotkeys()
{
    for (const Registration& registration : m_registrations) {
        if (registration.grabbed)
            ungrab(*registration.grabbed);
    }
}

EventHandlerRef X11Hotkeys::installEventHandler(HotkeyEventType type, std::function<std::int32_t()> handler)
{
    const auto ref = static_cast<EventHandlerRef>(++m_lastRef);
    m_handlers.push_back({ref, type, std::move(handler)});
    return ref;
}

void X11Hotkeys::removeEventHandler(EventHandlerRef handler)
{
    std::erase_if(m_handlers, [handler](const Handler& each) { return each.ref == handler; });
}

HotkeyRef X11Hotkeys::registerHotkey(const Hotkey& hotkey, std::uint32_t)
{
    auto combination = find(hotkey);
    if (combination && !grab(*combination))
        return HotkeyRef::none;
    const auto ref = static_cast<HotkeyRef>(++m_lastRef);
    m_registrations.push_back({ref, hotkey, std::move(combination)});
    return ref;
}

void X11Hotkeys::unregisterHotkey(HotkeyRef hotkey)
{
    const auto found = std::ranges::find(m_registrations, hotkey, &Registration::ref);
    if (found == m_registrations.end())
        return;
    if (found->grabbed)
        ungrab(*found->grabbed);
    m_registrations.erase(found);
}

std::optional<X11KeyCombination> X11Hotkeys::find(const Hotkey& hotkey) const
{
    const auto keyAt = [this](std::uint8_t code) -> const X11Key& { return m_keyboard.key(code); };
    return X11KeyCombination::find(hotkey, keyAt, m_modifierKeys);
}

bool X11Hotkeys::grab(const X11KeyCombination& combination)
{
    // Not over an own one: the server would let it be replaced, and the first to be unregistered take both away.
    if (std::ranges::any_of(m_registrations, [&](const Registration& each) { return each.grabbed == combination; }))
        return false;
    xcb_connection_t* raw = m_connection.raw();
    std::vector<xcb_void_cookie_t> cookies;
    for (const std::uint16_t modifiers : combination.modifiersWithLocks()) {
        cookies.push_back(xcb_grab_key_checked(raw, 0, m_connection.root(), modifiers, combination.keyCode,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool taken = false;
    for (const xcb_void_cookie_t cookie : cookies)
        taken = XcbReply<xcb_generic_error_t>(xcb_request_check(raw, cookie)) != nullptr || taken;
    if (taken)
        ungrab(combination); // what this client does not hold is left to its holder
    return !taken;
}

void X11Hotkeys::ungrab(const X11KeyCombination& combination)
{
    for (const std::uint16_t modifiers : combination.modifiersWithLocks())
        xcb_ungrab_key(m_connection.raw(), combination.keyCode, m_connection.root(), modifiers);
    m_connection.flush();
}

void X11Hotkeys::readModifierKeys()
{
    xcb_connection_t* raw = m_connection.raw();
    const XcbReply<xcb_get_modifier_mapping_reply_t> reply(
        xcb_get_modifier_mapping_reply(raw, xcb_get_modifier_mapping(raw), nullptr));
    if (!reply)
        return;
    const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(reply.get());
    m_modifierKeys.assign(keys, keys + xcb_get_modifier_mapping_keycodes_length(reply.get()));
}

void X11Hotkeys::noteMappingChange()
{
    if (m_mappingChanged)
        return;
    m_mappingChanged = true;
    // One change of the layout comes as several events; and the table of keys reads it anew first.
    m_runLoop.post([weak = m_weakAnchor.ref()] {
        if (X11Hotkeys* self = weak.get())
            self->takeInMappingChange();
    });
}

void X11Hotkeys::takeInMappingChange()
{
    m_mappingChanged = false;
    readModifierKeys();
    for (Registration& registration : m_registrations) {
        auto combination = find(registration.hotkey);
        if (combination == registration.grabbed)
            continue;
        if (registration.grabbed)
            ungrab(*registration.grabbed);
        registration.grabbed.reset();
        // One that is taken by now is tried again with the next layout.
        if (combination && grab(*combination))
            registration.grabbed = std::move(combination);
    }
}

void X11Hotkeys::receivePress(const xcb_key_press_event_t& event)
{
    // The server repeats a held key as a release and a press of the same instant.
    if (event.event != m_connection.root() || (m_releasedAt == event.time && m_releasedKey == event.detail))
        return;
    const bool isHotkey = std::ranges::any_of(m_registrations, [&](const Registration& each) {
        return each.grabbed && each.grabbed->matches(event.detail, event.state);
    });
    if (isHotkey)
        deliver(kPressed);
}

void X11Hotkeys::deliver(HotkeyEventType type)
{
    const auto handlers = m_handlers; // they may come and go meanwhile
    for (auto handler = handlers.rbegin(); handler != handlers.rend(); ++handler) {
        const bool isInstalled = std::ranges::find(m_handlers, handler->ref, &Handler::ref) != m_handlers.end();
        if (isInstalled && handler->type == type && handler->call() == kNoError)
            return;
    }
}

} // namespace haloric
