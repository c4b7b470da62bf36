#include "hosts/x11/windows/X11WindowManager.h"

#include "hosts/x11/server/X11PropertyRequest.h"
#include "hosts/x11/server/X11WindowEvents.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace haloric {

namespace {

constexpr std::uint32_t kMostHints = 1024;

} // namespace

X11WindowManager::X11WindowManager(X11Connection& connection, LinuxRunLoop& runLoop)
    : m_connection(connection),
      m_atoms(connection)
{
    m_connection.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    m_subscriptions.push_back(m_connection.onEvent(XCB_PROPERTY_NOTIFY, [this](const auto& event) {
        propertyChanged(reinterpret_cast<const xcb_property_notify_event_t&>(event));
    }));
    m_subscriptions.push_back(m_connection.onEvent(XCB_DESTROY_NOTIFY, [this](const auto& event) {
        const auto window = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
        m_mayHaveChanged = m_mayHaveChanged || window == m_checkWindow;
    }));
    look();
    m_tellsDecoration = supports("_NET_FRAME_EXTENTS");
    m_subscriptions.push_back(runLoop.onBeforeWait([this] { return lookAgain(); }));
}

void X11WindowManager::propertyChanged(const xcb_property_notify_event_t& event)
{
    if (event.window == m_connection.root())
        m_mayHaveChanged = m_mayHaveChanged || event.atom == m_atoms.supportingCheck || event.atom == m_atoms.supported;
    else if (event.window == m_checkWindow)
        m_mayHaveChanged = m_mayHaveChanged || event.atom == m_atoms.supportingCheck || event.atom == m_atoms.name;
}

bool X11WindowManager::lookAgain()
{
    if (!std::exchange(m_mayHaveChanged, false) || m_connection.isLost())
        return false;
    const auto before = std::tuple(m_isRunning, m_checkWindow, m_name);
    look();
    m_tellsDecoration = supports("_NET_FRAME_EXTENTS");
    if (before != std::tie(m_isRunning, m_checkWindow, m_name))
        m_changes.publish();
    return true;
}

void X11WindowManager::look()
{
    X11PropertyRequest supported(m_connection.raw(), m_connection.root(), m_atoms.supported, kMostHints);
    X11PropertyRequest check(m_connection.raw(), m_connection.root(), m_atoms.supportingCheck);
    const xcb_window_t named = check.take().window().value_or(XCB_WINDOW_NONE);
    m_supported = supported.take().atoms();
    m_isRunning = false;
    m_name.clear();
    m_checkWindow = X11WindowEvents::mayListen(m_connection, named) ? named : xcb_window_t{XCB_WINDOW_NONE};
    if (m_checkWindow == XCB_WINDOW_NONE)
        return;
    // Listening first: the window's own half may be written only after the root's.
    X11WindowEvents::listen(m_connection, m_checkWindow);
    X11PropertyRequest itself(m_connection.raw(), m_checkWindow, m_atoms.supportingCheck);
    X11PropertyRequest name(m_connection.raw(), m_checkWindow, m_atoms.name);
    m_isRunning = itself.take().window() == m_checkWindow;
    if (m_isRunning)
        m_name = name.take().text();
}

bool X11WindowManager::supports(std::string_view hint)
{
    return m_isRunning && std::ranges::find(m_supported, m_connection.atom(hint)) != m_supported.end();
}

} // namespace haloric
