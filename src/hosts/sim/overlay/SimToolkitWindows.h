// The windowing toolkit of the simulated desktop.
#pragma once

#include "hosts/sim/overlay/SimToolkitWindow.h"

#include <vector>

namespace haloric {

class SimToolkitWindows final : public ToolkitWindows {
public:
    explicit SimToolkitWindows(SimDesktop& desktop) : m_desktop(desktop) {}

    std::unique_ptr<ToolkitWindow> make(const ToolkitWindowConfiguration& configuration,
                                        const ToolkitWindowDelegate& delegate) override
    {
        return std::make_unique<SimToolkitWindow>(*this, configuration, delegate);
    }

    // Every overlay that exists, in the order of making.
    const std::vector<SimToolkitWindow*>& all() const { return m_windows; }

    SimDesktop& desktop() { return m_desktop; }

private:
    friend class SimToolkitWindow;

    SimDesktop& m_desktop;
    std::vector<SimToolkitWindow*> m_windows;
};

} // namespace haloric
