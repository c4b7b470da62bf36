#include "hosts/sim/refresh/SimScreens.h"

namespace haloric {

std::span<const Screen> SimScreens::all() const
{
    const SimModel& model = m_desktop.model;
    if (m_source != model.screens) {
        m_source = model.screens;
        m_screens.clear();
        for (const SimScreen& screen : m_source) {
            const auto id = screen.id == DisplayID::none ? std::nullopt : std::optional(screen.id);
            m_screens.push_back({model.flipped(screen.frame), id, screen.framesPerSecond, screen.scale});
        }
    }
    return m_screens;
}

Subscription SimScreens::onParametersChange(Task handler)
{
    return m_desktop.notifier.screens.subscribe(std::move(handler));
}

} // namespace haloric
