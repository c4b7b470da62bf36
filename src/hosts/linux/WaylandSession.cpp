#include "hosts/linux/WaylandSession.h"

namespace haloric {

bool WaylandSession::isPresent(const Processes& processes)
{
    return !processes.environmentVariable("WAYLAND_DISPLAY").value_or("").empty() ||
           processes.environmentVariable("XDG_SESSION_TYPE") == "wayland";
}

AlertModel WaylandSession::alert()
{
    return {
        .messageText = "Haloric cannot follow the windows of this session",
        .informativeText =
            "This is a Wayland session. Haloric is an X11 program: it sees no windows of Wayland programs, "
            "so most windows get no highlight. Only programs that run under Xwayland may get one.\n\n"
            "In a session on X11 Haloric follows all windows. Not every desktop still offers one.",
        .style = AlertStyle::warning,
        .icon = AlertIcon::application,
        .buttons = {"OK"},
    };
}

} // namespace haloric
