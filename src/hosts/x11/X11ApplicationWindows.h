// The ordinary windows of this program, as the window manager has them. Main thread.
#pragma once

#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11ClientTable.h"
#include "platform/Application.h"

#include <optional>

namespace haloric {

class X11ApplicationWindows {
public:
    // Both outlive it.
    X11ApplicationWindows(const X11ClientTable& clients, const X11Scale& scale) : m_clients(clients), m_scale(scale) {}

    // The active window, when it is one of this program's; absent otherwise.
    std::optional<OwnWindow> key() const;

    // The one that was active last; absent when there is none.
    std::optional<OwnWindow> main() const;

private:
    OwnWindow describe(const X11Client& client) const;

    const X11ClientTable& m_clients;
    const X11Scale& m_scale;
};

} // namespace haloric
