// A window as the simulated window server holds it: of an application, or one of Haloric's overlays.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "platform/AccessibilityNames.h"

#include <functional>
#include <optional>
#include <string>

namespace haloric {

// A Space's number; ordinary Spaces count from 1, those of full-screen windows follow.
using SimSpaceID = int;

enum class SimDecoration {
    titled, // a title bar with a close button in the middle of its height
    none,   // no title bar, no close button
    client, // drawn by the application; its close button cannot be read
};

// Where a full-screen window came from.
struct SimFullScreenOrigin {
    Rect frame;
    SimSpaceID space = 1;
};

struct SimWindow {
    WindowNumber number = WindowNumber::none;
    ProcessID owner = ProcessID::none;
    std::string name; // what scenarios call it; overlays have none
    Rect frame;       // global space
    int layer = 0;
    double alpha = 1;
    SimSpaceID space = 1;
    SimDecoration decoration = SimDecoration::titled;
    double titleBarHeight = 28;
    std::string role{AXRoles::kWindow};
    bool numberUntold = false; // Accessibility cannot give the window's number
    bool overlay = false;
    Rect believedFrame;    // overlays: where the toolkit believes the window to be, in global space
    bool orderedIn = true; // overlays are made ordered out
    bool minimised = false;
    std::optional<SimFullScreenOrigin> fullScreenOrigin; // present while the window is full screen
    bool lastSeenOnScreen = false;                       // kept by SimModel::takeVanished
    std::function<void(const SimWindow&)> whenClosed;    // called just before it is removed
};

} // namespace haloric
