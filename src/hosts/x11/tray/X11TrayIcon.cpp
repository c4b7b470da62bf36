#include "hosts/x11/tray/X11TrayIcon.h"

#include "foundation/ProductIdentity.h"
#include "hosts/linux/tray/TrayPicture.h"
#include "hosts/x11/server/X11Property.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string>

namespace haloric {

namespace {

constexpr std::uint16_t kFirstSide = 22; // pixels; the tray changes it
constexpr int kLargestSide = 256;
constexpr Seconds kRest{0.7};
constexpr std::uint32_t kRequestDock = 0; // SYSTEM_TRAY_REQUEST_DOCK
constexpr std::uint32_t kEmbedVersion = 0;
constexpr std::uint32_t kEmbedMapped = 1; // XEMBED_MAPPED
constexpr double kColorUnit = 65535;

xcb_window_t trayOf(X11Connection& connection)
{
    xcb_connection_t* raw = connection.raw();
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(raw, xcb_get_selection_owner(raw, connection.atoms().tray), nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

// The colour of the tray's text: the first three of the twelve numbers.
std::optional<Color> textColorOf(X11Connection& connection, xcb_window_t tray)
{
    const auto numbers = X11PropertyRequest(connection.raw(), tray, connection.atoms().trayColors).take().cardinals();
    if (numbers.size() < 3)
        return std::nullopt;
    return Color{numbers[0] / kColorUnit, numbers[1] / kColorUnit, numbers[2] / kColorUnit, 1};
}

std::uint8_t depthOf(const xcb_screen_t& screen, xcb_visualid_t visual)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0; xcb_depth_next(&depth)) {
        for (auto entry = xcb_depth_visuals_iterator(depth.data); entry.rem > 0; xcb_visualtype_next(&entry)) {
            if (entry.data->visual_id == visual)
                return depth.data->depth;
        }
    }
    return 0;
}

template <class Event>
PixelRect placeOf(const Event& event, int width, int height)
{
    return {event.root_x - event.event_x, event.root_y - event.event_y, width, height};
}

} // namespace

X11TrayIcon::X11TrayIcon(X11Connection& connection, LinuxRunLoop& runLoop, X11OwnWindows& ownWindows)
    : m_connection(connection),
      m_runLoop(runLoop),
      m_ownWindows(ownWindows),
      m_painter(connection)
{
    connection.selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY); // for the messages of new trays
    listen();
    listenToPointer();
}

X11TrayIcon::~X11TrayIcon() { undock(); }

void X11TrayIcon::listen()
{
    // A new tray sends MANAGER to the root window.
    m_events.push_back(
        m_connection.onEvent<xcb_client_message_event_t>(XCB_CLIENT_MESSAGE, [this](const auto& message) {
            const X11Atoms& atoms = m_connection.atoms();
            if (m_isVisible && message.type == atoms.manager && message.data.data32[1] == atoms.tray)
                dock();
        }));
    m_events.push_back(m_connection.onEvent<xcb_expose_event_t>(XCB_EXPOSE, [this](const auto& event) {
        if (event.window == m_window && event.count == 0)
            paint();
    }));
    m_events.push_back(
        m_connection.onEvent<xcb_configure_notify_event_t>(XCB_CONFIGURE_NOTIFY, [this](const auto& event) {
            if (event.window != m_window)
                return;
            m_width = event.width;
            m_height = event.height;
            paint();
        }));
    // A tray that ends leaves the window to the root, or takes it along.
    m_events.push_back(
        m_connection.onEvent<xcb_reparent_notify_event_t>(XCB_REPARENT_NOTIFY, [this](const auto& event) {
            if (event.window != m_window)
                return;
            const bool hasLeft = m_isEmbedded && event.parent == m_connection.root();
            m_isEmbedded = event.parent != m_connection.root();
            if (hasLeft)
                dock();
        }));
    m_events.push_back(m_connection.onEvent<xcb_destroy_notify_event_t>(XCB_DESTROY_NOTIFY, [this](const auto& event) {
        if (event.window == m_window)
            dock();
    }));
}

void X11TrayIcon::listenToPointer()
{
    m_events.push_back(m_connection.onEvent<xcb_button_press_event_t>(XCB_BUTTON_PRESS, [this](const auto& event) {
        if (event.event == m_window)
            handlePress(event);
    }));
    m_events.push_back(m_connection.onEvent<xcb_enter_notify_event_t>(XCB_ENTER_NOTIFY, [this](const auto& event) {
        if (event.event == m_window) {
            m_resting = m_runLoop.scheduleOnce(
                kRest, [this, place = placeOf(event, m_width, m_height)] { m_rested.publish(place); });
        }
    }));
    m_events.push_back(m_connection.onEvent<xcb_leave_notify_event_t>(XCB_LEAVE_NOTIFY, [this](const auto& event) {
        if (event.event == m_window) {
            m_resting.reset();
            m_left.publish(placeOf(event, m_width, m_height));
        }
    }));
}

void X11TrayIcon::setImage(const Image& image)
{
    m_image = image;
    paint();
}

void X11TrayIcon::setVisible(bool isVisible)
{
    if (isVisible == m_isVisible)
        return;
    m_isVisible = isVisible;
    if (isVisible)
        dock();
    else
        undock();
}

// Asks the present tray to embed a new window; without a tray, the message of the next one leads here.
void X11TrayIcon::dock()
{
    undock();
    m_tray = trayOf(m_connection);
    if (m_tray == XCB_WINDOW_NONE)
        return;
    makeWindow();
    describeWindow();
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_tray;
    message.type = m_connection.atoms().trayOpcode;
    message.data.data32[1] = kRequestDock;
    message.data.data32[2] = m_window;
    std::array<char, 32> bytes{};
    std::memcpy(bytes.data(), &message, sizeof message);
    xcb_send_event(m_connection.raw(), 0, m_tray, XCB_EVENT_MASK_NO_EVENT, bytes.data());
}

void X11TrayIcon::undock()
{
    m_resting.reset();
    if (m_window == XCB_WINDOW_NONE)
        return;
    m_ownWindows.remove(m_window);
    xcb_destroy_window(m_connection.raw(), std::exchange(m_window, xcb_window_t{XCB_WINDOW_NONE}));
    if (m_colormap != XCB_COLORMAP_NONE)
        xcb_free_colormap(m_connection.raw(), std::exchange(m_colormap, xcb_colormap_t{XCB_COLORMAP_NONE}));
    m_isEmbedded = false;
}

// The window has the visual that the tray asks for, which is translucent on composited desktops; otherwise the root
// window's visual and the tray's background.
void X11TrayIcon::makeWindow()
{
    xcb_connection_t* raw = m_connection.raw();
    const xcb_screen_t& screen = m_connection.screen();
    const auto wanted = X11PropertyRequest(raw, m_tray, m_connection.atoms().trayVisual).take();
    m_visual = wanted.first(XCB_ATOM_VISUALID).value_or(screen.root_visual);
    const std::uint8_t depth = depthOf(screen, m_visual);
    const bool isTranslucent = depth == 32;
    if (!isTranslucent)
        m_visual = screen.root_visual;
    m_window = xcb_generate_id(raw);
    m_width = m_height = kFirstSide;
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_EXPOSURE |
                                 XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_ENTER_WINDOW |
                                 XCB_EVENT_MASK_LEAVE_WINDOW;
    if (isTranslucent) {
        m_colormap = xcb_generate_id(raw);
        xcb_create_colormap(raw, XCB_COLORMAP_ALLOC_NONE, m_colormap, m_connection.root(), m_visual);
        const std::uint32_t values[] = {0, 0, events, m_colormap};
        xcb_create_window(raw, depth, m_window, m_connection.root(), 0, 0, kFirstSide, kFirstSide, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, m_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP, values);
    } else {
        const std::uint32_t values[] = {XCB_BACK_PIXMAP_PARENT_RELATIVE, events};
        xcb_create_window(raw, screen.root_depth, m_window, m_connection.root(), 0, 0, kFirstSide, kFirstSide, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, m_visual, XCB_CW_BACK_PIXMAP | XCB_CW_EVENT_MASK, values);
    }
    m_ownWindows.add(m_window);
}

void X11TrayIcon::describeWindow()
{
    xcb_connection_t* raw = m_connection.raw();
    const X11Atoms& atoms = m_connection.atoms();
    const std::uint32_t info[] = {kEmbedVersion, kEmbedMapped};
    xcb_change_property(raw, XCB_PROP_MODE_REPLACE, m_window, atoms.embedInfo, atoms.embedInfo, 32, 2, info);
    const std::string identifier(ProductIdentity::kIdentifier);
    const std::string windowClass = identifier + '\0' + identifier + '\0'; // instance and class, each with its end
    xcb_change_property(raw, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(windowClass.size()), windowClass.data());
    const std::string name = "Haloric";
    xcb_change_property(raw, XCB_PROP_MODE_REPLACE, m_window, atoms.name, atoms.utf8String, 8,
                        static_cast<std::uint32_t>(name.size()), name.data());
}

// The press has grabbed the pointer for this connection; without that grab the menu can take its own.
void X11TrayIcon::handlePress(const xcb_button_press_event_t& event)
{
    if (event.detail != XCB_BUTTON_INDEX_1 && event.detail != XCB_BUTTON_INDEX_3)
        return;
    m_resting.reset();
    xcb_connection_t* raw = m_connection.raw();
    xcb_ungrab_pointer(raw, event.time);
    const XcbReply<xcb_get_input_focus_reply_t> done(
        xcb_get_input_focus_reply(raw, xcb_get_input_focus(raw), nullptr)); // the server has released it
    m_runLoop.post(m_anchor.bind([](X11TrayIcon& that, const PixelRect& place) { that.m_pressed.publish(place); },
                                 placeOf(event, m_width, m_height)));
}

void X11TrayIcon::paint()
{
    const auto* drawn = std::get_if<DrawnImage>(&m_image);
    if (m_window == XCB_WINDOW_NONE || !drawn || m_width <= 0 || m_height <= 0)
        return;
    const int side = std::min({m_width, m_height, kLargestSide});
    m_painter.paint(m_window, m_visual, TrayPicture::draw(*drawn, side, textColorOf(m_connection, m_tray)), m_width,
                    m_height);
}

} // namespace haloric
