// What the program tells the user in a Wayland session, where it runs as an X11 program under Xwayland: it sees no
// window of a Wayland program, so it shows nothing most of the time. Pure.
#pragma once

#include "platform/Alerts.h"
#include "platform/Processes.h"

#include <string_view>

namespace haloric::WaylandSession {

// Whether WAYLAND_DISPLAY is set, or XDG_SESSION_TYPE is "wayland".
bool isPresent(const Processes& processes);

// Its one button changes nothing.
AlertModel alert();

inline constexpr std::string_view kLogLine =
    "haloric: this is a Wayland session: only windows of X11 programs under Xwayland can be highlighted";

} // namespace haloric::WaylandSession
