// What an overlay window needs from outside; everything outlives the window.
#pragma once

#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/Screens.h"
#include "platform/ToolkitWindow.h"
#include "windowserver/SharedWindowServer.h"

namespace haloric {

struct OverlayWindowDependencies {
    RunLoop& runLoop;
    const Screens& screens;
    ToolkitWindows& toolkitWindows;
    SharedWindowServer& windowServer;
    Log& log;
};

} // namespace haloric
