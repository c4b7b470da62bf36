// The space in force at the moment, shared by everything that turns pixels into points and back. The screens write
// it when monitors or the user's text resolution change; anyone reads it, on any thread.
//
// X11 has no scale of its own; desktops announce theirs as a text resolution, `Xft.dpi` in the resource manager.
#pragma once

#include "hosts/x11/server/X11Space.h"

#include <mutex>
#include <string_view>

namespace haloric {

class X11Scale {
public:
    explicit X11Scale(const X11Space& space = {}) : m_space(space) {}

    X11Space current() const
    {
        const std::lock_guard guard(m_lock);
        return m_space;
    }

    void set(const X11Space& space)
    {
        const std::lock_guard guard(m_lock);
        m_space = space;
    }

    // Pixels a point at a text resolution: the resolution over 96, rounded down to a quarter, within 1 to 4. Down,
    // because people set 100 or 110 for slightly larger text without meaning a larger desktop.
    static double fromDotsPerInch(double dotsPerInch);

    // As above, for the `Xft.dpi` line of a resource manager string; 1 when there is none that makes sense.
    static double fromResources(std::string_view resources);

private:
    mutable std::mutex m_lock;
    X11Space m_space;
};

} // namespace haloric
