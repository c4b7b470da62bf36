// The public window list of the simulated desktop.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/WindowInfoSource.h"

namespace haloric {

class SimWindowInfoSource final : public WindowInfoSource {
public:
    explicit SimWindowInfoSource(SimDesktop& desktop) : m_desktop(desktop) {}

    std::optional<std::vector<WindowInfo>> copyWindowInfo(WindowListOptions options, WindowNumber relativeTo) override;

private:
    SimDesktop& m_desktop;
};

} // namespace haloric
