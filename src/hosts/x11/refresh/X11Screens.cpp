#include "hosts/x11/refresh/X11Screens.h"

#include "hosts/x11/server/X11Property.h"

#include <utility>

namespace haloric {

X11Screens::X11Screens(X11Connection& connection, X11Scale& scale) : m_connection(connection), m_scale(scale)
{
    listen();
    read();
}

void X11Screens::listen()
{
    const xcb_window_t root = m_connection.root();
    m_connection.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    const xcb_window_t resourceRoot = m_connection.resourceRoot();
    if (resourceRoot != root) {
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_connection.raw(), resourceRoot, XCB_CW_EVENT_MASK, &mask);
    }
    const auto keep = [this](Subscription subscription) { m_subscriptions.push_back(std::move(subscription)); };
    keep(
        m_connection.onEvent<xcb_property_notify_event_t>(XCB_PROPERTY_NOTIFY, [this, resourceRoot](const auto& event) {
            if (event.window == resourceRoot && event.atom == XCB_ATOM_RESOURCE_MANAGER)
                m_mayHaveChanged = true;
        }));
    keep(m_connection.onEvent<xcb_configure_notify_event_t>(XCB_CONFIGURE_NOTIFY, [this, root](const auto& event) {
        m_mayHaveChanged = m_mayHaveChanged || event.window == root;
    }));
    if (!m_connection.has(&xcb_randr_id))
        return;
    xcb_randr_select_input(m_connection.raw(), root,
                           XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                               XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    const std::uint8_t first = m_connection.firstEvent(&xcb_randr_id);
    for (const int event : {XCB_RANDR_SCREEN_CHANGE_NOTIFY, XCB_RANDR_NOTIFY})
        keep(m_connection.onEvent(static_cast<std::uint8_t>(first + event),
                                  [this](const auto&) { m_mayHaveChanged = true; }));
}

bool X11Screens::update()
{
    if (!std::exchange(m_mayHaveChanged, false))
        return false;
    const X11Space space = m_scale.current();
    const auto before = m_screens;
    read();
    if (before != m_screens || space != m_scale.current())
        m_changes.publish();
    return true;
}

void X11Screens::read()
{
    X11PropertyRequest resources(m_connection.raw(), m_connection.resourceRoot(), XCB_ATOM_RESOURCE_MANAGER,
                                 X11PropertyRequest::kUnlimitedWords);
    const auto monitors = X11Monitor::readAll(m_connection.raw(), m_connection.screen());
    const double factor = X11Scale::fromResources(resources.take().text());
    const X11Space space{factor, monitors.empty() ? m_scale.current().primary : monitors.front().frame};
    m_scale.set(space);
    m_screens.clear();
    for (const X11Monitor& monitor : monitors)
        m_screens.push_back(describe(monitor, space));
}

Screen X11Screens::describe(const X11Monitor& monitor, const X11Space& space)
{
    const double told = monitor.framesPerSecond;
    return {space.toScreenSpace(monitor.frame), static_cast<DisplayID>(monitor.identifier),
            told > 0 ? told : kUsualFramesPerSecond, space.pixelsPerPoint};
}

} // namespace haloric
