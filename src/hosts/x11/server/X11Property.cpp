#include "hosts/x11/server/X11Property.h"

#include "hosts/x11/server/XcbReply.h"

#include <cstring>
#include <utility>

namespace haloric {

namespace {

constexpr std::uint8_t kWordFormat = 32;
constexpr std::uint8_t kTextFormat = 8;

} // namespace

std::size_t X11Property::count(xcb_atom_t type) const
{
    return m_format == kWordFormat && m_type == type ? m_bytes.size() / sizeof(std::uint32_t) : 0;
}

std::uint32_t X11Property::value(std::size_t index) const
{
    std::uint32_t value = 0;
    std::memcpy(&value, m_bytes.data() + index * sizeof value, sizeof value);
    return value;
}

std::optional<std::uint32_t> X11Property::first(xcb_atom_t type) const
{
    return count(type) > 0 ? std::optional(value(0)) : std::nullopt;
}

std::vector<std::uint32_t> X11Property::values(xcb_atom_t type) const
{
    std::vector<std::uint32_t> values(count(type));
    for (std::size_t index = 0; index < values.size(); ++index)
        values[index] = value(index);
    return values;
}

bool X11Property::contains(xcb_atom_t type, std::uint32_t wanted) const
{
    const std::size_t size = count(type);
    for (std::size_t index = 0; index < size; ++index) {
        if (value(index) == wanted)
            return true;
    }
    return false;
}

std::string_view X11Property::text(std::size_t part) const
{
    if (m_format != kTextFormat)
        return {};
    std::string_view rest = m_bytes;
    for (; part > 0; --part) {
        const auto end = rest.find('\0');
        if (end == std::string_view::npos)
            return {};
        rest.remove_prefix(end + 1);
    }
    return rest.substr(0, rest.find('\0'));
}

std::string X11Property::latin1Text(std::size_t part) const
{
    std::string converted;
    for (const char character : text(part)) {
        const auto code = static_cast<unsigned char>(character);
        if (code >= 0x80)
            converted += static_cast<char>(0xC0 | code >> 6);
        converted += static_cast<char>(code >= 0x80 ? 0x80 | (code & 0x3F) : code);
    }
    return converted;
}

X11PropertyRequest::X11PropertyRequest(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
                                       std::uint32_t maximumWords)
    : m_connection(connection),
      m_cookie(xcb_get_property(connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, maximumWords))
{
}

X11PropertyRequest::X11PropertyRequest(X11PropertyRequest&& other) noexcept
    : m_connection(std::exchange(other.m_connection, nullptr)),
      m_cookie(other.m_cookie)
{
}

X11PropertyRequest::~X11PropertyRequest()
{
    if (m_connection)
        xcb_discard_reply(m_connection, m_cookie.sequence);
}

X11Property X11PropertyRequest::take()
{
    auto* connection = std::exchange(m_connection, nullptr);
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, m_cookie, nullptr));
    if (!reply || reply->type == XCB_ATOM_NONE)
        return {};
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    return {reply->type, reply->format, std::string(bytes, length)};
}

} // namespace haloric
