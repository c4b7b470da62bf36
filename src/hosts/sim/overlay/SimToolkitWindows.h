// The windowing toolkit of the simulated desktop.
#pragma once

#include "hosts/sim/overlay/SimToolkitWindow.h"

namespace haloric {

class SimToolkitWindows final : public ToolkitWindows {
public:
    explicit SimToolkitWindows(SimDesktop& desktop) : m_desktop(desktop) {}

    std::unique_ptr<ToolkitWindow> make(const ToolkitWindowConfiguration& configuration,
                                        const ToolkitWindowDelegate& delegate) override
    {
        return std::make_unique<SimToolkitWindow>(m_desktop, configuration, delegate);
    }

private:
    SimDesktop& m_desktop;
};

} // namespace haloric
