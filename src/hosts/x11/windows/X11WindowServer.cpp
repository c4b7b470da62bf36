#include "hosts/x11/windows/X11WindowServer.h"

#include "hosts/x11/server/XcbReply.h"

#include <algorithm>
#include <array>

namespace haloric {

namespace {

std::uint32_t numberOf(X11FrameWatch::Event event)
{
    switch (event) {
    case X11FrameWatch::Event::moved:
        return X11WindowServer::kMoved;
    case X11FrameWatch::Event::resized:
        return X11WindowServer::kResized;
    case X11FrameWatch::Event::hidden:
        return X11WindowServer::kOrderedOut;
    case X11FrameWatch::Event::destroyed:
        break;
    }
    return X11WindowServer::kDestroyed;
}

} // namespace

X11WindowServer::X11WindowServer(X11Connection& connection, const char* display, const X11Clients& clients,
                                 const X11Scale& scale)
    : m_connection(connection),
      m_clients(clients),
      m_scale(scale),
      m_watch(display, connection.atoms(),
              [this](xcb_window_t window, X11FrameWatch::Event event) { notify(window, numberOf(event)); })
{
}

std::optional<Rect> X11WindowServer::bounds(xcb_window_t window)
{
    std::optional<PixelRect> pixels;
    if (const auto sighting = m_watch.look(window); sighting.isWatched)
        pixels = sighting.visibleFrame;
    else if (const X11Client* client = m_clients.table().find(window))
        pixels = client->visibleFrame();
    else
        pixels = askForRectangle(window);
    return pixels ? std::optional(m_scale.current().toGlobal(*pixels)) : std::nullopt;
}

std::optional<PixelRect> X11WindowServer::askForRectangle(xcb_window_t window) const
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

void X11WindowServer::addProcedure(WindowServerEntries::NotifyProc procedure, std::uint32_t event)
{
    const std::lock_guard guard(m_lock);
    m_registrations.emplace_back(procedure, event);
}

bool X11WindowServer::removeProcedure(WindowServerEntries::NotifyProc procedure, std::uint32_t event)
{
    const std::lock_guard guard(m_lock);
    return std::erase(m_registrations, Registration(procedure, event)) > 0;
}

void X11WindowServer::notify(xcb_window_t window, std::uint32_t event)
{
    const std::lock_guard guard(m_lock);
    for (const auto& [procedure, wanted] : m_registrations) {
        if (wanted == event)
            procedure(event, &window, sizeof window, nullptr);
    }
}

bool X11WindowServer::requestNotifications(std::span<const std::uint32_t> windows)
{
    if (!m_watch.isConnected() || windows.size() > 1)
        return false;
    if (windows.empty())
        m_watch.stop();
    else
        m_watch.watch(windows.front(), m_clients.table().find(windows.front()));
    return true;
}

std::unique_ptr<X11WindowServer::Transaction> X11WindowServer::createTransaction()
{
    return m_spare ? std::move(m_spare) : std::make_unique<Transaction>();
}

void X11WindowServer::move(Transaction& transaction, xcb_window_t window, Point origin)
{
    transaction.moves.emplace_back(window, origin);
}

void X11WindowServer::commit(Transaction& transaction)
{
    const X11Space space = m_scale.current();
    for (const auto& [window, origin] : transaction.moves) {
        const PixelRect pixels = withinProtocol(space.fromGlobal({origin.x, origin.y, 0, 0}));
        const std::array values{static_cast<std::uint32_t>(pixels.x), static_cast<std::uint32_t>(pixels.y)};
        xcb_configure_window(m_connection.raw(), window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values.data());
    }
    m_connection.flush();
    transaction.moves.clear();
}

void X11WindowServer::recycle(std::unique_ptr<Transaction> transaction)
{
    transaction->moves.clear();
    m_spare = std::move(transaction);
}

} // namespace haloric
