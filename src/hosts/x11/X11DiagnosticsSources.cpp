#include "hosts/x11/X11Diagnostics.h"

#include "hosts/x11/input/X11RawInput.h"
#include "hosts/x11/overlay/X11Compositor.h"
#include "hosts/x11/overlay/X11ToolkitWindows.h"
#include "hosts/x11/refresh/X11DisplayLinks.h"
#include "hosts/x11/windows/X11WindowManager.h"
#include "platform/Processes.h"
#include "windowserver/WindowServer.h"

#include <xcb/present.h>
#include <xcb/randr.h>
#include <xcb/res.h>
#include <xcb/shape.h>
#include <xcb/shm.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

namespace haloric {

X11Diagnostics X11Diagnostics::gather(const Sources& sources, std::string_view version)
{
    X11Diagnostics found;
    found.version = version;
    found.display = sources.processes.environmentVariable("DISPLAY").value_or("");
    found.windowManager = sources.windowManager.isRunning() ? sources.windowManager.name() : "";
    if (sources.windowManager.isRunning() && found.windowManager.empty())
        found.windowManager = "one without a name";
    found.hasCompositor = sources.compositor.isRunning();
    found.compositor = sources.compositor.name();
    const auto add = [&](const char* name, xcb_extension_t& extension) {
        found.extensions.push_back({name, sources.connection.has(&extension)});
    };
    add("MIT-SHM", xcb_shm_id);
    add("Present", xcb_present_id);
    add("RandR", xcb_randr_id);
    add("SHAPE", xcb_shape_id);
    add("X-Resource", xcb_res_id);
    add("XFixes", xcb_xfixes_id);
    add("XInput", xcb_input_id);
    found.screens.assign(sources.screens.all().begin(), sources.screens.all().end());
    found.overlaysAreTranslucent = sources.toolkitWindows.areTranslucent();
    found.sharesMemory = sources.toolkitWindows.shareMemory();
    found.followsRefresh = sources.displayLinks.followRefresh();
    found.movesPastToolkit = sources.processes.environmentVariable(WindowServer::kDisableVariable) != "1";
    found.hearsRawInput = sources.rawInput.isAvailable();
    return found;
}

} // namespace haloric
