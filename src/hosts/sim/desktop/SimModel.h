// The state of the simulated desktop, and queries of it. The verbs of SimDesktop change it; adapters read it.
#pragma once

#include "hosts/sim/desktop/SimApp.h"
#include "hosts/sim/desktop/SimScreen.h"
#include "hosts/sim/desktop/SimWindowStack.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace haloric {

class SimModel {
public:
    static constexpr ProcessID kOwnProcess{100};

    std::vector<SimScreen> screens; // the first is the primary one, whose origin is zero
    SimWindowStack windows;
    std::vector<std::unique_ptr<SimApp>> apps; // in the order of launching
    ProcessID frontmost = ProcessID::none;
    SimSpaceID activeSpace = 1;
    SimSpaceID ordinarySpaces = 3;
    SimSpaceID lastSpace = 3; // the highest number given so far
    std::uint64_t pressedButtons = 0;
    bool trusted = true;

    // Haloric itself, which owns its overlays and may own ordinary windows.
    SimModel();

    SimApp* app(ProcessID pid) const;
    SimApp* appNamed(std::string_view name) const;
    SimApp* frontmostApp() const { return app(frontmost); }

    bool isOnScreen(const SimWindow& window) const;

    // Whether an application can give this window the focus.
    bool isFocusable(const SimWindow& window) const;

    // The front one of an application's focusable windows, or null.
    SimWindow* topFocusable(ProcessID owner) const;

    // Global space to screen space and back; both need a screen.
    Rect flipped(const Rect& rect) const;

    // Application windows that have left the screen since the last call.
    std::vector<WindowNumber> takeVanished();
};

} // namespace haloric
