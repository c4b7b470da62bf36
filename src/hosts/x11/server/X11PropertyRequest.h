// A property that has been asked for and not yet been read. Making one sends nothing by itself and waits for
// nothing, so many can be sent together; `take` then waits for the X server alone. One that is never taken is
// dropped.
#pragma once

#include "hosts/x11/server/X11Property.h"
#include "hosts/x11/server/XcbReply.h"

#include <cstdint>
#include <utility>

#include <xcb/xcb.h>

namespace haloric {

class X11PropertyRequest {
public:
    static constexpr std::uint32_t kDefaultMaximumWords = 64; // enough for states, types, extents and names
    static constexpr std::uint32_t kUnlimitedWords = 1U << 20;

    X11PropertyRequest(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
                       std::uint32_t maximumWords = kDefaultMaximumWords)
        : m_connection(connection),
          m_cookie(xcb_get_property(connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, maximumWords))
    {
    }

    X11PropertyRequest(X11PropertyRequest&& other) noexcept
        : m_connection(std::exchange(other.m_connection, nullptr)),
          m_cookie(other.m_cookie)
    {
    }
    X11PropertyRequest& operator=(X11PropertyRequest&&) = delete;

    ~X11PropertyRequest()
    {
        if (m_connection)
            xcb_discard_reply(m_connection, m_cookie.sequence);
    }

    // Once. Absent when the window is gone or has no such property.
    X11Property take()
    {
        auto* connection = std::exchange(m_connection, nullptr);
        const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, m_cookie, nullptr));
        if (!reply || reply->type == XCB_ATOM_NONE)
            return {};
        const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
        const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
        return {reply->type, reply->format, std::string(bytes, length)};
    }

private:
    xcb_connection_t* m_connection;
    xcb_get_property_cookie_t m_cookie;
};

} // namespace haloric
