// What the overlay needs from outside; everything outlives the controller.
#pragma once

#include "platform/InputMonitors.h"
#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/Screens.h"
#include "platform/ToolkitWindow.h"
#include "platform/Workspace.h"
#include "windowserver/SharedWindowServer.h"
#include "windowserver/WindowList.h"

namespace haloric {

struct OverlayDependencies {
    RunLoop& runLoop;
    Workspace& workspace;
    Screens& screens;
    ToolkitWindows& toolkitWindows;
    InputMonitors& input;
    SharedWindowServer& windowServer;
    const WindowList& windowList;
    Log& log;
};

} // namespace haloric
