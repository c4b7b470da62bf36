#include "testing/x11/TestClient.h"

#include <algorithm>

namespace haloric {
namespace {

// From ICCCM and EWMH.
constexpr int kFocusRequests = 4;
constexpr std::uint32_t kIconicState = 3;
constexpr std::uint32_t kStaticGravity = 10;
constexpr std::uint32_t kSourceIsPager = 2;
constexpr std::uint32_t kHasPositionAndSize = 0xF << 8;
constexpr std::uint32_t kStateRemove = 0;
constexpr std::uint32_t kStateAdd = 1;
constexpr std::uint32_t kUserPosition = 1 << 0;
constexpr std::uint32_t kUserSize = 1 << 1;
constexpr std::uint32_t kHasGravity = 1 << 9;
constexpr std::uint32_t kMotifHasDecorations = 1 << 1;
constexpr std::size_t kSizeHintsLength = 18;

} // namespace

TestClient::TestClient(DesktopObserver& observer, const std::string& display, const Options& options)
    : m_observer(observer),
      m_foreignProcess(options.application == Application::ownOne ? std::make_unique<ForeignProcess>(display)
                                                                  : nullptr),
      m_connection(m_foreignProcess ? TestConnection(m_foreignProcess->takeSocket()) : TestConnection(display)),
      m_isManaged(options.management == Management::managed)
{
    m_connection.onEvent = [this](const xcb_generic_event_t& event) { handle(event); };
    createWindow(options);
    setProperties(options);
    m_connection.synchronize();
}

void TestClient::createWindow(const Options& options)
{
    m_window = xcb_generate_id(m_connection.raw());
    const std::uint32_t attributes[] = {options.color, options.management == Management::overrideRedirect ? 1U : 0U,
                                        XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE |
                                            XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_KEY_PRESS};
    const ScreenRect& content = options.content;
    xcb_create_window(m_connection.raw(), XCB_COPY_FROM_PARENT, m_window, m_connection.root(),
                      static_cast<std::int16_t>(content.x), static_cast<std::int16_t>(content.y),
                      static_cast<std::uint16_t>(content.width), static_cast<std::uint16_t>(content.height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, attributes);
}

void TestClient::setProperties(const Options& options)
{
    const auto set = [this](const char* name, const char* type, const std::vector<std::uint32_t>& values) {
        m_connection.setValues(m_window, name, m_connection.atom(type), values);
    };
    m_connection.setText(m_window, "WM_NAME", options.title);
    m_connection.setText(m_window, "_NET_WM_NAME", options.title);
    m_connection.setText(m_window, "WM_CLASS", options.className + '\0' + options.className + '\0');
    set("WM_PROTOCOLS", "ATOM", {m_connection.atom("WM_DELETE_WINDOW")});

    std::vector<std::uint32_t> hints(kSizeHintsLength);
    hints[0] = kUserPosition | kUserSize | kHasGravity;
    const ScreenRect& content = options.content;
    const int place[] = {content.x, content.y, content.width, content.height};
    std::transform(std::begin(place), std::end(place), hints.begin() + 1,
                   [](int length) { return static_cast<std::uint32_t>(length); });
    hints[kSizeHintsLength - 1] = kStaticGravity;
    set("WM_NORMAL_HINTS", "WM_SIZE_HINTS", hints);

    if (options.processId) {
        const bool followsApplication =
            m_foreignProcess && *options.processId == static_cast<std::uint32_t>(::getpid());
        set("_NET_WM_PID", "CARDINAL",
            {followsApplication ? static_cast<std::uint32_t>(m_foreignProcess->pid()) : *options.processId});
    }
    if (!options.type.empty())
        set("_NET_WM_WINDOW_TYPE", "ATOM", {m_connection.atom(options.type)});
    if (options.decoration == Decoration::none)
        set("_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {kMotifHasDecorations, 0, 0, 0, 0});
    if (options.gtkFrameExtents)
        set("_GTK_FRAME_EXTENTS", "CARDINAL", {options.gtkFrameExtents->begin(), options.gtkFrameExtents->end()});
    if (options.transientFor)
        set("WM_TRANSIENT_FOR", "WINDOW", {*options.transientFor});
}

void TestClient::handle(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7F) {
    case XCB_MAP_NOTIFY:
        m_isMapped = true;
        break;
    case XCB_UNMAP_NOTIFY:
        m_isMapped = false;
        break;
    case XCB_DESTROY_NOTIFY:
        m_isDestroyed = true;
        break;
    case XCB_BUTTON_PRESS:
        ++m_buttonPresses;
        break;
    case XCB_KEY_PRESS:
        ++m_keyPresses;
        break;
    case XCB_FOCUS_IN:
        noteFocus(event, true);
        break;
    case XCB_FOCUS_OUT:
        noteFocus(event, false);
        break;
    case XCB_CLIENT_MESSAGE: {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.data.data32[0] == m_connection.atom("WM_DELETE_WINDOW"))
            xcb_destroy_window(m_connection.raw(), m_window);
        break;
    }
    default:
        break;
    }
}

void TestClient::noteFocus(const xcb_generic_event_t& event, bool isGained)
{
    // Grabs and notifications for the window under the pointer do not change the focus.
    const auto& change = reinterpret_cast<const xcb_focus_in_event_t&>(event);
    const bool isGrab = change.mode == XCB_NOTIFY_MODE_GRAB || change.mode == XCB_NOTIFY_MODE_UNGRAB;
    if (!isGrab && change.detail < XCB_NOTIFY_DETAIL_POINTER)
        m_hasFocus = isGained;
}

bool TestClient::waitUntil(const std::function<bool()>& predicate, std::chrono::milliseconds timeout)
{
    return m_observer.waitUntil(
        [&] {
            processEvents();
            xcb_flush(m_connection.raw());
            return predicate();
        },
        timeout);
}

bool TestClient::show()
{
    xcb_map_window(m_connection.raw(), m_window);
    xcb_flush(m_connection.raw());
    return waitUntil([this] { return m_isMapped && (!m_isManaged || !m_observer.hasWindowManager() || isListed()); });
}

bool TestClient::focus()
{
    // A window manager that has just started, or is still mapping the window, may drop the request.
    for (int request = 0; request < kFocusRequests; ++request) {
        m_connection.sendToRoot(m_window, "_NET_ACTIVE_WINDOW", {kSourceIsPager, XCB_CURRENT_TIME, 0});
        if (waitUntil([this] { return m_isMapped && m_hasFocus && m_observer.activeWindow() == m_window; },
                      kTimeout / kFocusRequests))
            return true;
    }
    return false;
}

void TestClient::requestContent(const ScreenRect& content)
{
    m_connection.sendToRoot(m_window, "_NET_MOVERESIZE_WINDOW",
                            {kStaticGravity | kHasPositionAndSize | kSourceIsPager << 12,
                             static_cast<std::uint32_t>(content.x), static_cast<std::uint32_t>(content.y),
                             static_cast<std::uint32_t>(content.width), static_cast<std::uint32_t>(content.height)});
}

bool TestClient::setContent(const ScreenRect& wanted)
{
    requestContent(wanted);
    return waitUntil([&] { return content() == wanted; });
}

bool TestClient::minimise()
{
    m_connection.sendToRoot(m_window, "WM_CHANGE_STATE", {kIconicState});
    return waitUntil(
        [this] { return m_observer.value(m_window, "WM_STATE") == kIconicState || hasState("_NET_WM_STATE_HIDDEN"); });
}

bool TestClient::setState(const std::string& state, bool isWanted)
{
    m_connection.sendToRoot(m_window, "_NET_WM_STATE",
                            {isWanted ? kStateAdd : kStateRemove, m_connection.atom(state), 0, kSourceIsPager});
    return waitUntil([&] { return hasState(state) == isWanted; });
}

bool TestClient::close()
{
    m_connection.sendToRoot(m_window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, kSourceIsPager});
    return waitUntil([this] { return m_isDestroyed && !isListed(); });
}

bool TestClient::destroy()
{
    xcb_destroy_window(m_connection.raw(), m_window);
    return waitUntil([this] { return m_isDestroyed && !isListed(); });
}

bool TestClient::raise()
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection.raw(), m_window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    if (!m_isManaged) {
        m_connection.synchronize();
        return true;
    }
    return waitUntil([this] {
        const auto stacking = m_observer.clientListStacking();
        return !stacking.empty() && stacking.back() == m_window;
    });
}

void TestClient::setPicture(const ScreenImage& picture)
{
    const xcb_pixmap_t background = m_connection.makePixmap(picture);
    xcb_change_window_attributes(m_connection.raw(), m_window, XCB_CW_BACK_PIXMAP, &background);
    repaint();
}

void TestClient::repaint()
{
    xcb_clear_area(m_connection.raw(), 0, m_window, 0, 0, 0, 0);
    m_connection.synchronize();
}

bool TestClient::isListed()
{
    const auto clients = m_observer.clientList();
    return std::find(clients.begin(), clients.end(), m_window) != clients.end();
}

bool TestClient::hasState(const std::string& state)
{
    const auto states = m_observer.values(m_window, "_NET_WM_STATE");
    return std::find(states.begin(), states.end(), m_observer.atom(state)) != states.end();
}

ScreenRect TestClient::content() { return m_observer.rectOnRoot(m_window); }

std::array<int, 4> TestClient::frameExtents()
{
    std::array<int, 4> extents{};
    const auto values = m_observer.values(m_window, "_NET_FRAME_EXTENTS");
    if (values.size() == extents.size())
        std::transform(values.begin(), values.end(), extents.begin(),
                       [](std::uint32_t value) { return static_cast<int>(value); });
    return extents;
}

ScreenRect TestClient::visibleFrame()
{
    auto [left, right, top, bottom] = frameExtents();
    const auto shadow = m_observer.values(m_window, "_GTK_FRAME_EXTENTS");
    if (shadow.size() == 4) {
        left -= static_cast<int>(shadow[0]);
        right -= static_cast<int>(shadow[1]);
        top -= static_cast<int>(shadow[2]);
        bottom -= static_cast<int>(shadow[3]);
    }
    const ScreenRect inside = content();
    return {inside.x - left, inside.y - top, inside.width + left + right, inside.height + top + bottom};
}

} // namespace haloric
