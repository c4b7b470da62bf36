#include "hosts/x11/refresh/X11Screens.h"

#include "hosts/x11/server/X11Property.h"
#include "hosts/x11/server/XcbReply.h"

#include <algorithm>
#include <map>
#include <utility>

namespace haloric {

namespace {

template <class T>
using Reply = XcbReply<T>;

// Refresh rates by output. Servers without real outputs have none.
std::map<xcb_randr_output_t, double> readRates(xcb_connection_t* connection, xcb_window_t root)
{
    const Reply<xcb_randr_get_screen_resources_current_reply_t> resources(xcb_randr_get_screen_resources_current_reply(
        connection, xcb_randr_get_screen_resources_current(connection, root), nullptr));
    std::map<xcb_randr_output_t, double> rates;
    if (!resources)
        return rates;
    const int crtcCount = xcb_randr_get_screen_resources_current_crtcs_length(resources.get());
    const auto* crtcs = xcb_randr_get_screen_resources_current_crtcs(resources.get());
    const int modeCount = xcb_randr_get_screen_resources_current_modes_length(resources.get());
    const auto* modes = xcb_randr_get_screen_resources_current_modes(resources.get());
    std::vector<xcb_randr_get_crtc_info_cookie_t> cookies;
    for (int index = 0; index < crtcCount; ++index)
        cookies.push_back(xcb_randr_get_crtc_info(connection, crtcs[index], resources->config_timestamp));
    for (const auto cookie : cookies) {
        const Reply<xcb_randr_get_crtc_info_reply_t> crtc(xcb_randr_get_crtc_info_reply(connection, cookie, nullptr));
        if (!crtc)
            continue;
        const auto* mode = std::find_if(modes, modes + modeCount, [&](const auto& m) { return m.id == crtc->mode; });
        const int outputCount = xcb_randr_get_crtc_info_outputs_length(crtc.get());
        const auto* outputs = xcb_randr_get_crtc_info_outputs(crtc.get());
        for (int index = 0; mode != modes + modeCount && index < outputCount; ++index)
            rates[outputs[index]] = X11Monitor::framesPerSecondOf(*mode);
    }
    return rates;
}

X11Monitor describe(const xcb_randr_monitor_info_t& info, const std::map<xcb_randr_output_t, double>& rates)
{
    X11Monitor monitor{info.name, info.primary != 0, {info.x, info.y, info.width, info.height}, 0};
    const int outputCount = xcb_randr_monitor_info_outputs_length(&info);
    const auto* outputs = xcb_randr_monitor_info_outputs(&info);
    for (int index = 0; index < outputCount; ++index) {
        const auto rate = rates.find(outputs[index]);
        if (rate != rates.end())
            monitor.framesPerSecond = std::max(monitor.framesPerSecond, rate->second);
    }
    return monitor;
}

bool hasMonitors(xcb_connection_t* connection)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_randr_id);
    if (!extension || extension->present == 0)
        return false;
    const Reply<xcb_randr_query_version_reply_t> version(
        xcb_randr_query_version_reply(connection, xcb_randr_query_version(connection, 1, 5), nullptr));
    return version && (version->major_version > 1 || version->minor_version >= 5);
}

} // namespace

std::vector<X11Monitor> X11Monitor::readAll(xcb_connection_t* connection, const xcb_screen_t& screen)
{
    constexpr std::uint8_t kActiveOnly = 1;
    std::vector<X11Monitor> monitors;
    if (hasMonitors(connection)) {
        const auto cookie = xcb_randr_get_monitors(connection, screen.root, kActiveOnly);
        const auto rates = readRates(connection, screen.root);
        const Reply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(connection, cookie, nullptr));
        if (!reply)
            return monitors;
        for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem > 0;
             xcb_randr_monitor_info_next(&each))
            monitors.push_back(describe(*each.data, rates));
        return inOrder(std::move(monitors));
    }
    const Reply<xcb_get_geometry_reply_t> root(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, screen.root), nullptr));
    if (root)
        monitors.push_back({screen.root, true, {0, 0, root->width, root->height}, 0});
    return monitors;
}

std::vector<X11Monitor> X11Monitor::inOrder(std::vector<X11Monitor> monitors)
{
    std::erase_if(monitors, [](const X11Monitor& m) { return m.frame.width <= 0 || m.frame.height <= 0; });
    std::stable_partition(monitors.begin(), monitors.end(), [](const X11Monitor& m) { return m.primary; });
    std::vector<X11Monitor> distinct;
    for (const X11Monitor& monitor : monitors) {
        if (std::ranges::find(distinct, monitor.frame, &X11Monitor::frame) == distinct.end())
            distinct.push_back(monitor);
    }
    return distinct;
}

PixelRect X11Monitor::around(std::span<const X11Monitor> monitors)
{
    PixelRect all;
    for (const X11Monitor& monitor : monitors) {
        const PixelRect& frame = monitor.frame;
        const int x = all.empty() ? frame.x : std::min(all.x, frame.x);
        const int y = all.empty() ? frame.y : std::min(all.y, frame.y);
        all = {x, y, std::max(all.empty() ? frame.maxX() : all.maxX(), frame.maxX()) - x,
               std::max(all.empty() ? frame.maxY() : all.maxY(), frame.maxY()) - y};
    }
    return all;
}

double X11Monitor::framesPerSecondOf(const xcb_randr_mode_info_t& mode)
{
    double lines = mode.vtotal;
    if ((mode.mode_flags & XCB_RANDR_MODE_FLAG_DOUBLE_SCAN) != 0)
        lines *= 2;
    if ((mode.mode_flags & XCB_RANDR_MODE_FLAG_INTERLACE) != 0)
        lines /= 2;
    const double dots = mode.htotal * lines;
    return dots > 0 ? mode.dot_clock / dots : 0;
}

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
    X11Space space = m_scale.current();
    space.pixelsPerPoint = factor;
    if (!monitors.empty()) {
        space.primary = monitors.front().frame;
        space.desktop = X11Monitor::around(monitors);
    }
    m_screens.clear();
    for (const X11Monitor& monitor : monitors)
        m_screens.push_back(describe(monitor, space));
    m_scale.set(space);
}

Screen X11Screens::describe(const X11Monitor& monitor, const X11Space& space)
{
    const double told = monitor.framesPerSecond;
    return {space.toScreenSpace(monitor.frame), static_cast<DisplayID>(monitor.identifier),
            told > 0 ? told : kUsualFramesPerSecond, space.pixelsPerPoint};
}

} // namespace haloric
