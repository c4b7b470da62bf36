#include "hosts/sim/windows/SimWindowInfoSource.h"

namespace haloric {

namespace {

WindowInfo infoOf(const SimWindow& window)
{
    WindowInfo info;
    info.layer = static_cast<std::int64_t>(window.layer);
    info.ownerPID = static_cast<std::int64_t>(window.owner);
    info.alpha = window.alpha;
    info.number = static_cast<std::int64_t>(window.number);
    info.bounds = window.frame;
    return info;
}

bool has(WindowListOptions options, WindowListOptions bit)
{
    return (static_cast<std::uint32_t>(options) & static_cast<std::uint32_t>(bit)) != 0;
}

} // namespace

std::optional<std::vector<WindowInfo>> SimWindowInfoSource::copyWindowInfo(WindowListOptions options,
                                                                           WindowNumber relativeTo)
{
    auto& missing = m_desktop.faults.missingWindowLists;
    if (missing > 0) {
        --missing;
        return std::nullopt;
    }
    const SimModel& model = m_desktop.model;
    std::vector<WindowInfo> list;
    if (has(options, WindowListOptions::includingWindow)) {
        if (const SimWindow* window = model.windows.find(relativeTo))
            list.push_back(infoOf(*window));
        return list;
    }
    for (const auto& window : model.windows.frontToBack()) {
        if (!has(options, WindowListOptions::onScreenOnly) || model.isOnScreen(*window))
            list.push_back(infoOf(*window));
    }
    return list;
}

} // namespace haloric
