#include "hosts/x11/windows/X11WindowManager.h"

#include "hosts/x11/server/X11Property.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace haloric {

namespace {

constexpr std::uint32_t kMostHints = 1024;

} // namespace

X11WindowManager::X11WindowManager(X11Connection& connection) : m_connection(connection), m_atoms(connection.atoms())
{
    m_connection.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    m_subscriptions.push_back(m_connection.onEvent<xcb_property_notify_event_t>(
        XCB_PROPERTY_NOTIFY, [this](const auto& event) { propertyChanged(event); }));
    m_subscriptions.push_back(
        m_connection.onEvent<xcb_destroy_notify_event_t>(XCB_DESTROY_NOTIFY, [this](const auto& event) {
            m_mayHaveChanged = m_mayHaveChanged || event.window == m_checkWindow;
        }));
    read();
}

void X11WindowManager::propertyChanged(const xcb_property_notify_event_t& event)
{
    if (event.window == m_connection.root())
        m_mayHaveChanged = m_mayHaveChanged || event.atom == m_atoms.supportingCheck || event.atom == m_atoms.supported;
    else if (event.window == m_checkWindow)
        m_mayHaveChanged = m_mayHaveChanged || event.atom == m_atoms.supportingCheck || event.atom == m_atoms.name;
}

bool X11WindowManager::update()
{
    if (!std::exchange(m_mayHaveChanged, false))
        return false;
    const auto before = std::tuple(m_isRunning, m_checkWindow, m_name);
    read();
    if (before != std::tie(m_isRunning, m_checkWindow, m_name))
        m_changes.publish();
    return true;
}

void X11WindowManager::read()
{
    X11PropertyRequest supported(m_connection.raw(), m_connection.root(), m_atoms.supported, kMostHints);
    X11PropertyRequest check(m_connection.raw(), m_connection.root(), m_atoms.supportingCheck);
    const xcb_window_t named = check.take().window().value_or(XCB_WINDOW_NONE);
    m_supported = supported.take().atoms();
    m_isRunning = false;
    m_name.clear();
    m_checkWindow = m_connection.mayListenTo(named) ? named : xcb_window_t{XCB_WINDOW_NONE};
    if (m_checkWindow == XCB_WINDOW_NONE)
        return;
    // Listening first: the window's own half may be written only after the root's.
    m_connection.listenTo(m_checkWindow);
    X11PropertyRequest itself(m_connection.raw(), m_checkWindow, m_atoms.supportingCheck);
    X11PropertyRequest name(m_connection.raw(), m_checkWindow, m_atoms.name);
    m_isRunning = itself.take().window() == m_checkWindow;
    if (m_isRunning)
        m_name = name.take().text();
}

bool X11WindowManager::supports(xcb_atom_t hint) const
{
    return m_isRunning && std::ranges::find(m_supported, hint) != m_supported.end();
}

void X11WindowManager::waitUntilRunning(LinuxRunLoop& runLoop, Seconds patience,
                                        const std::function<bool()>& isEnding) const
{
    const Seconds deadline = runLoop.systemUptime() + patience;
    while (!m_isRunning && !isEnding() && runLoop.systemUptime() < deadline)
        runLoop.turn(deadline - runLoop.systemUptime());
}

} // namespace haloric
