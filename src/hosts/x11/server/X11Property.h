// The value of a window property, and the request for one. Any client may write anything into a property, so every
// accessor checks type, format and length; a property with other ones counts as absent.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

namespace haloric {

class X11Property {
public:
    X11Property() = default; // an absent one
    X11Property(xcb_atom_t type, std::uint8_t format, std::string bytes)
        : m_type(type),
          m_format(format),
          m_bytes(std::move(bytes))
    {
    }

    bool exists() const { return m_type != XCB_ATOM_NONE; }

    // 32-bit values of a property that has this type; an incomplete last value is left out.
    std::size_t count(xcb_atom_t type) const;
    std::uint32_t value(std::size_t index) const; // index below count()
    std::optional<std::uint32_t> first(xcb_atom_t type) const;
    std::vector<std::uint32_t> values(xcb_atom_t type) const;
    bool contains(xcb_atom_t type, std::uint32_t wanted) const;

    std::optional<std::uint32_t> cardinal() const { return first(XCB_ATOM_CARDINAL); }
    std::vector<std::uint32_t> cardinals() const { return values(XCB_ATOM_CARDINAL); }
    std::vector<xcb_atom_t> atoms() const { return values(XCB_ATOM_ATOM); }
    std::optional<xcb_window_t> window() const { return first(XCB_ATOM_WINDOW); }
    std::vector<xcb_window_t> windows() const { return values(XCB_ATOM_WINDOW); }

    // 8-bit text of any type, up to its first zero byte; empty for other formats.
    std::string_view text() const { return text(0); }

    // The part of 8-bit text with zero bytes between parts; empty past the last one.
    std::string_view text(std::size_t part) const;

    // Such a part of text in Latin-1, as UTF-8.
    std::string latin1Text(std::size_t part) const;

private:
    xcb_atom_t m_type = XCB_ATOM_NONE;
    std::uint8_t m_format = 0;
    std::string m_bytes;
};

// A request for a property whose reply has not been read yet. The constructor neither flushes nor waits, so many
// requests share a round trip; `take` blocks on the X server. A reply that is never taken is dropped.
class X11PropertyRequest {
public:
    static constexpr std::uint32_t kDefaultMaximumWords = 64; // enough for states, types, extents and names
    static constexpr std::uint32_t kUnlimitedWords = 1U << 20;

    X11PropertyRequest(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
                       std::uint32_t maximumWords = kDefaultMaximumWords);
    X11PropertyRequest(X11PropertyRequest&& other) noexcept;
    X11PropertyRequest& operator=(X11PropertyRequest&&) = delete;
    ~X11PropertyRequest();

    // Call it once. Absent when the window is gone or has no such property.
    X11Property take();

private:
    xcb_connection_t* m_connection;
    xcb_get_property_cookie_t m_cookie;
};

} // namespace haloric
