#include "hosts/x11/X11Diagnostics.h"

#include "hosts/linux/WaylandSession.h"
#include "hosts/x11/X11Desktop.h"
#include "platform/Processes.h"
#include "windowserver/WindowServer.h"

#include <sstream>

#include <xcb/present.h>
#include <xcb/randr.h>
#include <xcb/res.h>
#include <xcb/shape.h>
#include <xcb/shm.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

namespace haloric {

namespace {

void appendScreen(std::ostringstream& out, std::size_t index, const Screen& screen)
{
    out << "  " << index + 1 << ": " << screen.frame.width << " x " << screen.frame.height << " points at ("
        << screen.frame.x << ", " << screen.frame.y << "), scale " << screen.backingScale << ", "
        << screen.maximumFramesPerSecond << " Hz" << (index == 0 ? ", primary" : "") << '\n';
}

} // namespace

X11Diagnostics X11Diagnostics::gather(const X11Connection& connection, const X11Desktop& desktop,
                                      const Processes& processes, std::string_view version)
{
    X11Diagnostics found;
    found.version = version;
    found.display = processes.environmentVariable("DISPLAY").value_or("");
    found.isWaylandSession = WaylandSession::isPresent(processes);
    found.windowManager = desktop.windowManager.isRunning() ? desktop.windowManager.name() : "";
    if (desktop.windowManager.isRunning() && found.windowManager.empty())
        found.windowManager = "one without a name";
    found.hasCompositor = desktop.compositor.isRunning();
    found.compositor = desktop.compositor.name();
    const auto add = [&](const char* name, xcb_extension_t& extension) {
        found.extensions.push_back({name, connection.has(&extension)});
    };
    add("MIT-SHM", xcb_shm_id);
    add("Present", xcb_present_id);
    add("RandR", xcb_randr_id);
    add("SHAPE", xcb_shape_id);
    add("X-Resource", xcb_res_id);
    add("XFixes", xcb_xfixes_id);
    add("XInput", xcb_input_id);
    found.screens.assign(desktop.screens.all().begin(), desktop.screens.all().end());
    found.overlaysAreTranslucent = desktop.toolkitWindows.areTranslucent();
    found.sharesMemory = desktop.toolkitWindows.shareMemory();
    found.followsRefresh = desktop.displayLinks.followRefresh();
    found.movesPastToolkit = processes.environmentVariable(WindowServer::kDisableVariable) != "1";
    found.hearsRawInput = desktop.rawInput.isAvailable();
    return found;
}

std::string X11Diagnostics::text() const
{
    std::ostringstream out;
    out << "Haloric " << version << '\n';
    out << "Display: " << display << '\n';
    if (isWaylandSession)
        out << "Session: Wayland; only windows of X11 programs under Xwayland can be highlighted\n";
    out << "Window manager: " << (windowManager.empty() ? "none that follows EWMH" : windowManager) << '\n';
    out << "Compositor: "
        << (!hasCompositor       ? "none"
            : compositor.empty() ? "yes, without a name"
                                 : compositor)
        << '\n';
    out << "Extensions:";
    for (const Extension& extension : extensions)
        out << ' ' << (extension.isPresent ? "" : "no ") << extension.name
            << (&extension == &extensions.back() ? "" : ",");
    out << "\nScreens: " << screens.size() << '\n';
    for (std::size_t index = 0; index < screens.size(); ++index)
        appendScreen(out, index, screens[index]);
    out << "Overlays: " << (overlaysAreTranslucent ? "translucent" : "opaque rings, border and pulse alone") << '\n';
    out << "Pixels travel: " << (sharesMemory ? "in shared memory" : "through the connection") << '\n';
    out << "Ticks: " << (followsRefresh ? "by the screen's refresh" : "by a timer at the screen's rate") << '\n';
    out << "Moves past the toolkit: " << (movesPastToolkit ? "on" : "off") << '\n';
    out << "Input of other programs: " << (hearsRawInput ? "heard" : "not heard") << '\n';
    return out.str();
}

} // namespace haloric
