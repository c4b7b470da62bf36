// The value of a window property as it was found. Anybody may write anything into a property, so every reading
// checks type, format and length, and a property that is not what it should be counts as absent.
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

    // 32-bit values of a property that has this type; what does not fill a whole value is left out.
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

    // 8-bit text of any type, up to its first zero byte; empty when it is none.
    std::string_view text() const { return text(0); }

    // The part of 8-bit text with zero bytes between parts; empty past the last one.
    std::string_view text(std::size_t part) const;

private:
    xcb_atom_t m_type = XCB_ATOM_NONE;
    std::uint8_t m_format = 0;
    std::string m_bytes;
};

} // namespace haloric
