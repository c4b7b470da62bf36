#include "hosts/x11/input/X11Hotkeys.h"

#include <algorithm>

namespace haloric {

X11Hotkeys::X11Hotkeys(X11Connection& connection, X11Keyboard& keyboard, RunLoop& runLoop)
    : m_connection(connection),
      m_keyboard(keyboard),
      m_runLoop(runLoop)
{
    m_presses =
        connection.onEvent<xcb_key_press_event_t>(XCB_KEY_PRESS, [this](const auto& press) { receivePress(press); });
    m_releases = connection.onEvent<xcb_key_release_event_t>(XCB_KEY_RELEASE, [this](const auto& release) {
        m_releasedAt = release.time;
        m_releasedKey = release.detail;
    });
    m_keyboardChanges = keyboard.onChange([this] { keyboardChanged(); });
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
    return X11KeyCombination::find(hotkey, keyAt, m_keyboard.modifierKeys());
}

bool X11Hotkeys::grab(const X11KeyCombination& combination)
{
    // The server would let this client grab it twice, and the first ungrab would remove both.
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
        ungrab(combination); // removes only this client's grabs
    return !taken;
}

void X11Hotkeys::ungrab(const X11KeyCombination& combination)
{
    for (const std::uint16_t modifiers : combination.modifiersWithLocks())
        xcb_ungrab_key(m_connection.raw(), combination.keyCode, m_connection.root(), modifiers);
    m_connection.flush();
}

void X11Hotkeys::keyboardChanged()
{
    // One change of the layout sends several events; update the grabs once, after all of them.
    m_runLoop.post(m_weakAnchor.bind(&X11Hotkeys::updateGrabs));
}

void X11Hotkeys::updateGrabs()
{
    for (Registration& registration : m_registrations) {
        auto combination = find(registration.hotkey);
        if (combination == registration.grabbed)
            continue;
        if (registration.grabbed)
            ungrab(*registration.grabbed);
        registration.grabbed.reset();
        // If another program has grabbed it meanwhile, the next change of the layout tries again.
        if (combination && grab(*combination))
            registration.grabbed = std::move(combination);
    }
}

void X11Hotkeys::receivePress(const xcb_key_press_event_t& event)
{
    // The server repeats a held key as a release and a press with the same time.
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
    const auto handlers = m_handlers; // a handler may install and remove others
    for (auto handler = handlers.rbegin(); handler != handlers.rend(); ++handler) {
        const bool isInstalled = std::ranges::find(m_handlers, handler->ref, &Handler::ref) != m_handlers.end();
        if (isInstalled && handler->type == type && handler->call() == kNoError)
            return;
    }
}

} // namespace haloric
