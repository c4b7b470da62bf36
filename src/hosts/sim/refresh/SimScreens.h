// Screens of the simulated desktop.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/Screens.h"

#include <vector>

namespace haloric {

class SimScreens final : public Screens {
public:
    explicit SimScreens(SimDesktop& desktop) : m_desktop(desktop) {}

    std::span<const Screen> all() const override;
    Subscription onParametersChange(Task handler) override;

private:
    SimDesktop& m_desktop;
    mutable std::vector<SimScreen> m_source; // what m_screens was made from
    mutable std::vector<Screen> m_screens;
};

} // namespace haloric
