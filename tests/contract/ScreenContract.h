// The fixture of the contract tests of screens that change while the program runs.
#pragma once

#include "contract/OverlayContract.h"

namespace haloric {

class ScreenContract : public OverlayContract {
protected:
    // Waits until the change has been reported.
    bool isReported()
    {
        return host->waitUntil([&] { return changes > 0; });
    }

    bool isAtItsFrame(const ToolkitWindow& window)
    {
        return host->waitUntil(
            [&] { return host->placeOf(numberOf(window)) == std::optional(inGlobalSpace(window.frame())); });
    }

    int changes = 0;
    Subscription observer = host->screens().onParametersChange([this] { ++changes; });
};

} // namespace haloric
