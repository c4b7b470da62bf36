#include "hosts/x11/windows/X11WindowInfoSource.h"

#include <algorithm>

namespace haloric {

namespace {

bool contains(WindowListOptions options, WindowListOptions wanted)
{
    return (static_cast<std::uint32_t>(options) & static_cast<std::uint32_t>(wanted)) != 0;
}

std::int64_t layerOf(const X11Client& client, bool isActive)
{
    if (client.type == X11WindowType::desktop)
        return X11WindowInfoSource::kDesktopLayer;
    if (client.type == X11WindowType::dock)
        return X11WindowInfoSource::kDockLayer;
    // A terminal or a video may be kept above all others and be used like any other window.
    const bool isWorkedIn = isActive && client.isForWork();
    return client.above && !isWorkedIn ? X11WindowInfoSource::kFloatingLayer : X11WindowInfoSource::kOrdinaryLayer;
}

WindowInfo describe(const X11Client& client, const X11DesktopState& state, const X11Space& space)
{
    return {layerOf(client, client.window == state.activeWindow), static_cast<std::int64_t>(client.pid), client.opacity,
            static_cast<std::int64_t>(client.window), space.toGlobal(client.visibleFrame())};
}

} // namespace

std::optional<std::vector<WindowInfo>> X11WindowInfoSource::copyWindowInfo(WindowListOptions options,
                                                                           WindowNumber relativeTo)
{
    const X11Space space = m_scale.current();
    const X11DesktopState& state = m_clients.state();
    std::vector<WindowInfo> list;
    if (contains(options, WindowListOptions::includingWindow)) {
        if (const X11Client* client = m_clients.find(static_cast<xcb_window_t>(relativeTo)))
            list.push_back(describe(*client, state, space));
        return list;
    }
    const bool desktopToo = !contains(options, WindowListOptions::excludeDesktopElements);
    auto frontToBack = m_clients.stacking();
    std::reverse(frontToBack.begin(), frontToBack.end());
    for (const X11Client* client : frontToBack) {
        const bool isDesktop = client->type == X11WindowType::desktop;
        const bool isSeen = client->isSeenOn(state.currentDesktop) && (isDesktop || !state.showingDesktop);
        if (isDesktop ? desktopToo : (isSeen || !contains(options, WindowListOptions::onScreenOnly)))
            list.push_back(describe(*client, state, space));
    }
    return list;
}

} // namespace haloric
