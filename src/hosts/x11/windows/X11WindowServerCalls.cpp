#include "hosts/x11/windows/X11WindowServerCalls.h"

#include "hosts/x11/server/XcbReply.h"

#include <algorithm>
#include <array>
#include <utility>

namespace haloric {

namespace {

constexpr WindowServerCalls::ConnectionID kConnection = 1;

} // namespace

// Moves are noted until the commit, which sends them as one batch at once.
class X11WindowServerCalls::Transaction final : public WindowServerTransaction {
public:
    Transaction(X11Connection& connection, const X11Space& space) : m_connection(connection), m_space(space) {}

    void move(WindowNumber window, Point topLeft) override { m_moves.emplace_back(window, topLeft); }

    void commit() override
    {
        for (const auto& [window, topLeft] : m_moves) {
            const PixelRect pixels = withinProtocol(m_space.fromGlobal({topLeft.x, topLeft.y, 0, 0}));
            const std::array values{static_cast<std::uint32_t>(pixels.x), static_cast<std::uint32_t>(pixels.y)};
            xcb_configure_window(m_connection.raw(), static_cast<xcb_window_t>(window),
                                 XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values.data());
        }
        m_connection.flush();
    }

private:
    X11Connection& m_connection;
    X11Space m_space;
    std::vector<std::pair<WindowNumber, Point>> m_moves;
};

X11WindowServerCalls::X11WindowServerCalls(X11Connection& connection, X11Clients& clients, const X11Scale& scale)
    : m_connection(connection),
      m_clients(clients),
      m_scale(scale),
      m_focused(connection, clients, [this](WindowServerEvent event, xcb_window_t window) { notify(event, window); })
{
}

Subscription X11WindowServerCalls::load(NotificationHandler handler)
{
    m_handler = std::move(handler);
    return Subscription([this] { m_handler = nullptr; });
}

bool X11WindowServerCalls::has(Entry) const { return true; }

WindowServerCalls::ConnectionID X11WindowServerCalls::mainConnection() { return kConnection; }

std::optional<Rect> X11WindowServerCalls::getBounds(ConnectionID /*connection*/, WindowNumber window)
{
    const auto client = static_cast<xcb_window_t>(window);
    std::optional<PixelRect> pixels;
    if (m_focused.isKnown(client))
        pixels = m_focused.visibleFrame();
    else if (const X11Client* known = m_clients.table().find(client))
        pixels = known->visibleFrame();
    else
        pixels = askForRectangle(client);
    return pixels ? std::optional(m_scale.current().toGlobal(*pixels)) : std::nullopt;
}

std::optional<PixelRect> X11WindowServerCalls::askForRectangle(xcb_window_t window) const
{
    xcb_connection_t* raw = m_connection.raw();
    const auto geometryCookie = xcb_get_geometry(raw, window);
    const auto originCookie = xcb_translate_coordinates(raw, window, m_connection.root(), 0, 0);
    const XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(raw, geometryCookie, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(raw, originCookie, nullptr));
    if (!geometry || !origin)
        return std::nullopt;
    const int border = geometry->border_width;
    return X11FrameGeometry::outerRect(origin->dst_x - border, origin->dst_y - border, geometry->width,
                                       geometry->height, border);
}

bool X11WindowServerCalls::registerProc(WindowServerEvent event)
{
    m_registered.push_back(event);
    return true;
}

bool X11WindowServerCalls::removeProc(WindowServerEvent event) { return std::erase(m_registered, event) > 0; }

void X11WindowServerCalls::notify(WindowServerEvent event, xcb_window_t window) const
{
    if (m_handler && std::ranges::find(m_registered, event) != m_registered.end())
        m_handler(event, WindowNumber{window});
}

bool X11WindowServerCalls::request(ConnectionID, WindowNumber window)
{
    m_focused.follow(static_cast<xcb_window_t>(window));
    return true;
}

std::unique_ptr<WindowServerTransaction> X11WindowServerCalls::create(ConnectionID)
{
    return std::make_unique<Transaction>(m_connection, m_scale.current());
}

} // namespace haloric
