// The window list, from the table of managed windows, without a round trip. Overlays are not managed, so they are never
// listed. Main thread.
#pragma once

#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11ClientTable.h"
#include "platform/WindowInfoSource.h"

namespace haloric {

class X11WindowInfoSource final : public WindowInfoSource {
public:
    // Window layers, with the numbers of macOS.
    static constexpr std::int64_t kOrdinaryLayer = 0;
    static constexpr std::int64_t kFloatingLayer = 3; // kept above others, and not the active window
    static constexpr std::int64_t kDockLayer = 20;
    static constexpr std::int64_t kDesktopLayer = -1;

    // Both outlive it.
    X11WindowInfoSource(const X11ClientTable& clients, const X11Scale& scale) : m_clients(clients), m_scale(scale) {}

    // `includingWindow` returns that one window, on screen or not; otherwise the windows that are visible on the
    // current desktop.
    std::optional<std::vector<WindowInfo>> copyWindowInfo(WindowListOptions options, WindowNumber relativeTo) override;

private:
    const X11ClientTable& m_clients;
    const X11Scale& m_scale;
};

} // namespace haloric
