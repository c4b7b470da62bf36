// A window of the fake toolkit: the calls and its own state.
#pragma once

#include "platform/ToolkitWindow.h"

#include <cstddef>
#include <string>
#include <vector>

namespace haloric {

// Outlives the window itself, so that a test can inspect destroyed windows.
struct FakeToolkitWindow {
    ToolkitWindowConfiguration configuration;
    const ToolkitWindowDelegate* delegate = nullptr;
    ContentView* contentView = nullptr;
    Rect frame; // what the toolkit believes; a move past the toolkit leaves it as it was
    bool visible = false;
    bool alive = true;
    std::int64_t number = 0;

    // "setFrame", "setFrameOrigin", "orderFront", "orderOut", "setContentView", "display", "display parts", in order.
    std::vector<std::string> calls;
    std::vector<std::vector<Rect>> displayedParts; // of each "display parts"
    bool displayedBySetFrame = false;              // whether any setFrame requested redisplay

    std::size_t count(const std::string& call) const
    {
        std::size_t result = 0;
        for (const std::string& made : calls)
            result += made == call ? 1U : 0U;
        return result;
    }
};

} // namespace haloric
