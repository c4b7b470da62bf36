#include "hosts/x11/windows/X11Clients.h"

#include "hosts/x11/server/X11Property.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace haloric {

namespace {

constexpr std::uint32_t kMostWindows = 4096; // a longer list is cut

} // namespace

X11Clients::X11Clients(X11Connection& connection, X11WindowManager& windowManager)
    : m_connection(connection),
      m_atoms(connection.atoms()),
      m_windowManager(windowManager),
      m_reader(connection.raw(), connection.root(), m_atoms)
{
    listen();
    m_subscriptions.push_back(windowManager.onChange([this] { windowManagerChanged(); }));
    update();
}

void X11Clients::listen()
{
    m_connection.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    m_subscriptions.push_back(m_connection.onEvent<xcb_property_notify_event_t>(
        XCB_PROPERTY_NOTIFY, [this](const auto& event) { propertyChanged(event); }));
    m_subscriptions.push_back(
        m_connection.onEvent(XCB_CONFIGURE_NOTIFY, [this](const auto& event) { configured(event); }));
    m_subscriptions.push_back(m_connection.onEvent<xcb_reparent_notify_event_t>(
        XCB_REPARENT_NOTIFY, [this](const auto& event) { changed(event.window); }));
    m_subscriptions.push_back(m_connection.onEvent<xcb_map_notify_event_t>(
        XCB_MAP_NOTIFY, [this](const auto& event) { changed(event.window); }));
    m_subscriptions.push_back(m_connection.onEvent<xcb_unmap_notify_event_t>(
        XCB_UNMAP_NOTIFY, [this](const auto& event) { changed(event.window); }));
    m_subscriptions.push_back(m_connection.onEvent<xcb_destroy_notify_event_t>(
        XCB_DESTROY_NOTIFY, [this](const auto& event) { destroyed(event.window); }));
}

// It may tell the decoration in another way.
void X11Clients::windowManagerChanged()
{
    const auto windows = m_table.windows();
    m_toMeasure.insert(windows.begin(), windows.end());
}

bool X11Clients::describesClient(xcb_atom_t property) const
{
    const std::array<xcb_atom_t, 9> properties{m_atoms.windowType,    m_atoms.state,     m_atoms.icccmState,
                                               m_atoms.desktop,       m_atoms.opacity,   m_atoms.pid,
                                               m_atoms.applicationId, XCB_ATOM_WM_CLASS, XCB_ATOM_WM_TRANSIENT_FOR};
    return std::ranges::find(properties, property) != properties.end();
}

void X11Clients::propertyChanged(const xcb_property_notify_event_t& event)
{
    if (event.window == m_connection.root()) {
        for (const xcb_atom_t property : {m_atoms.activeWindow, m_atoms.clientList, m_atoms.clientListStacking,
                                          m_atoms.currentDesktop, m_atoms.showingDesktop})
            m_rootChanged = m_rootChanged || event.atom == property;
    } else if (event.atom == m_atoms.frameExtents || event.atom == m_atoms.gtkFrameExtents) {
        m_toMeasure.insert(event.window);
    } else if (describesClient(event.atom)) {
        changed(event.window);
    }
}

void X11Clients::configured(const xcb_generic_event_t& event)
{
    const auto& configure = eventAs<xcb_configure_notify_event_t>(event);
    const PixelRect outer = X11FrameGeometry::outerRect(configure.x, configure.y, configure.width, configure.height,
                                                        configure.border_width);
    if (configure.event != m_connection.root()) {
        m_toMeasure.insert(configure.window); // a client inside its frame
    } else if (const auto framed = m_table.configureFrame(configure.window, outer, event.full_sequence)) {
        m_framesMoved = true;
        if (framed->resized)
            m_toMeasure.insert(framed->client);
    }
}

void X11Clients::changed(xcb_window_t clientOrFrame)
{
    const xcb_window_t client = m_table.clientOf(clientOrFrame);
    if (client != XCB_WINDOW_NONE)
        m_toRead.insert(client);
}

// At once, because the id may be used for another window.
void X11Clients::destroyed(xcb_window_t window)
{
    if (!m_table.find(window))
        return changed(window); // it may be a frame
    m_table.remove(window);
    m_rootChanged = true;
}

bool X11Clients::update()
{
    if (!m_rootChanged && !m_framesMoved && m_toRead.empty() && m_toMeasure.empty())
        return false;
    m_framesMoved = false;
    m_reader.measureDecoration(m_windowManager.isRunning() && !m_windowManager.reportsDecoration());
    if (std::exchange(m_rootChanged, false))
        readRoot();
    else
        readClients();
    measureClients();
    for (const X11ClientNotice& notice : m_table.takeNotices())
        m_notices.publish(notice);
    m_passes.publish();
    return true;
}

void X11Clients::readRoot()
{
    const auto ask = [this](xcb_atom_t property) {
        return X11PropertyRequest(m_connection.raw(), m_connection.root(), property, kMostWindows);
    };
    auto stackingRequest = ask(m_atoms.clientListStacking);
    auto listRequest = ask(m_atoms.clientList);
    auto activeRequest = ask(m_atoms.activeWindow);
    auto desktopRequest = ask(m_atoms.currentDesktop);
    auto showingRequest = ask(m_atoms.showingDesktop);

    const X11Property stacking = stackingRequest.take();
    const X11Property list = listRequest.take();
    const auto listed = (stacking.exists() ? stacking : list).windows();
    // Some window managers add a second value here; it means nothing.
    const X11DesktopState state{activeRequest.take().window().value_or(XCB_WINDOW_NONE),
                                desktopRequest.take().cardinal().value_or(0),
                                showingRequest.take().cardinal().value_or(0) != 0};
    adopt(listed, state.activeWindow);
    readClients();
    m_table.setStacking(listed);
    if (state != m_table.state())
        m_table.setState(state);
}

// The active window counts even before, or without, being listed.
void X11Clients::adopt(const std::vector<xcb_window_t>& listed, xcb_window_t activeWindow)
{
    std::set<xcb_window_t> wanted(listed.begin(), listed.end());
    wanted.insert(activeWindow);
    std::erase_if(wanted, [this](xcb_window_t window) { return !m_connection.mayListenTo(window); });
    for (const xcb_window_t window : m_table.windows()) {
        if (wanted.erase(window) > 0)
            continue;
        m_table.remove(window);
        m_toRead.erase(window);
        m_connection.ignore(window);
    }
    for (const xcb_window_t window : wanted) {
        m_connection.listenTo(window); // before reading, so that nothing is missed
        m_toRead.insert(window);
    }
}

void X11Clients::readClients()
{
    const auto set = std::exchange(m_toRead, {});
    const std::vector<xcb_window_t> windows(set.begin(), set.end());
    if (windows.empty())
        return;
    auto records = m_reader.read(windows);
    for (std::size_t index = 0; index < windows.size(); ++index) {
        m_toMeasure.erase(windows[index]);
        if (records[index])
            m_table.store(std::move(*records[index]));
        else
            m_table.remove(windows[index]);
    }
}

void X11Clients::measureClients()
{
    std::vector<X11Client*> clients;
    for (const xcb_window_t window : std::exchange(m_toMeasure, {})) {
        if (X11Client* client = m_table.edit(window))
            clients.push_back(client);
    }
    m_reader.measure(clients);
}

} // namespace haloric
