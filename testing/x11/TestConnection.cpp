#include "testing/x11/TestConnection.h"

#include <algorithm>
#include <stdexcept>

#include <poll.h>

namespace haloric {
namespace {

constexpr int kLongestPauseMilliseconds = 10;
constexpr std::uint32_t kLongestProperty = 1024; // in units of four bytes

} // namespace

TestConnection::TestConnection(const std::string& display)
{
    int screenNumber = 0;
    m_connection = xcb_connect(display.c_str(), &screenNumber);
    setUp(screenNumber, "display " + display);
}

TestConnection::TestConnection(int connectedSocket) : m_connection(xcb_connect_to_fd(connectedSocket, nullptr))
{
    setUp(0, "the X server of a given socket");
}

void TestConnection::setUp(int screenNumber, const std::string& name)
{
    if (xcb_connection_has_error(m_connection) != 0) {
        xcb_disconnect(m_connection);
        throw std::runtime_error("cannot connect to " + name);
    }
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (; screenNumber > 0; --screenNumber)
        xcb_screen_next(&screens);
    m_screen = screens.data;
}

TestConnection::~TestConnection() { xcb_disconnect(m_connection); }

xcb_atom_t TestConnection::atom(const std::string& name)
{
    const auto known = m_atoms.find(name);
    if (known != m_atoms.end())
        return known->second;
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return m_atoms[name] = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

bool TestConnection::waitUntil(const std::function<bool()>& predicate, std::chrono::milliseconds timeout)
{
    const Deadline deadline(timeout);
    while (true) {
        processEvents();
        if (predicate())
            return true;
        if (deadline.isOver() || xcb_connection_has_error(m_connection) != 0)
            return false;
        xcb_flush(m_connection);
        pollfd readable{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        ::poll(&readable, 1, deadline.milliseconds(kLongestPauseMilliseconds));
    }
}

void TestConnection::processEvents()
{
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        if (onEvent)
            onEvent(*event);
    }
}

void TestConnection::synchronize()
{
    const Reply<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

std::vector<std::uint32_t> TestConnection::values(xcb_window_t window, const std::string& property)
{
    const auto cookie =
        xcb_get_property(m_connection, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestProperty);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::optional<std::uint32_t> TestConnection::value(xcb_window_t window, const std::string& property)
{
    const auto all = values(window, property);
    return all.empty() ? std::nullopt : std::optional(all.front());
}

std::string TestConnection::text(xcb_window_t window, const std::string& property)
{
    const auto cookie =
        xcb_get_property(m_connection, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestProperty);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->format != 8)
        return {};
    const auto* first = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

void TestConnection::setValues(xcb_window_t window, const std::string& property, xcb_atom_t type,
                               const std::vector<std::uint32_t>& values)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
    xcb_flush(m_connection);
}

void TestConnection::setText(xcb_window_t window, const std::string& property, const std::string& text)
{
    const bool isLegacy = property.starts_with("WM_") || property == "RESOURCE_MANAGER";
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property),
                        isLegacy ? static_cast<xcb_atom_t>(XCB_ATOM_STRING) : atom("UTF8_STRING"), 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
    xcb_flush(m_connection);
}

void TestConnection::sendToRoot(xcb_window_t window, const std::string& type, const std::vector<std::uint32_t>& data)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(type);
    std::copy_n(data.begin(), std::min<std::size_t>(data.size(), 5), message.data.data32);
    xcb_send_event(m_connection, 0, root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(m_connection);
}

ScreenImage TestConnection::capture() { return capture({0, 0, 1 << 15, 1 << 15}); }

ScreenImage TestConnection::capture(const ScreenRect& area)
{
    // RandR may have changed the screen's size since the connection was set up.
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, root()), nullptr));
    if (!size)
        return {};
    const int left = std::clamp<int>(area.x, 0, size->width);
    const int top = std::clamp<int>(area.y, 0, size->height);
    const int right = std::clamp<int>(area.right(), left, size->width);
    const int bottom = std::clamp<int>(area.bottom(), top, size->height);
    const ScreenRect inside{left, top, right - left, bottom - top};
    const auto cookie =
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, root(), static_cast<std::int16_t>(inside.x),
                      static_cast<std::int16_t>(inside.y), static_cast<std::uint16_t>(inside.width),
                      static_cast<std::uint16_t>(inside.height), ~0U);
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    const auto* first = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(reply.get()));
    const auto count = static_cast<std::size_t>(inside.width) * static_cast<std::size_t>(inside.height);
    std::vector<Pixel> pixels(first, first + count);
    for (Pixel& pixel : pixels)
        pixel &= 0xFFFFFF;
    return {inside, std::move(pixels)};
}

xcb_pixmap_t TestConnection::makePixmap(const ScreenImage& picture)
{
    const auto width = static_cast<std::uint16_t>(picture.area().width);
    const auto height = static_cast<std::uint16_t>(picture.area().height);
    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
    xcb_create_pixmap(m_connection, m_screen->root_depth, pixmap, root(), width, height);
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    xcb_create_gc(m_connection, context, pixmap, 0, nullptr);
    xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0,
                  m_screen->root_depth, static_cast<std::uint32_t>(picture.pixels().size() * sizeof(Pixel)),
                  reinterpret_cast<const std::uint8_t*>(picture.pixels().data()));
    xcb_free_gc(m_connection, context);
    return pixmap;
}

} // namespace haloric
