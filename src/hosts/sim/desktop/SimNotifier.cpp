#include "hosts/sim/desktop/SimNotifier.h"

#include <algorithm>

namespace haloric {

void SimNotifier::post(Source source, Task task)
{
    auto instant = m_runLoop.now();
    if (m_jitter > Seconds(0)) {
        const double fraction = static_cast<double>(m_random() >> 11) * 0x1p-53;
        instant += std::chrono::round<SimRunLoop::Nanoseconds>(m_jitter * fraction);
    }
    auto& last = m_last[static_cast<std::size_t>(source)];
    last = std::max(last, instant);
    m_runLoop.postAt(last, std::move(task));
}

void SimNotifier::setJitter(std::uint64_t seed, Seconds maximum)
{
    m_random.seed(seed);
    m_jitter = maximum;
}

void SimNotifier::postWorkspace(WorkspaceNotification notification)
{
    post(Source::workspace, [this, notification] { workspace.publish(notification); });
}

void SimNotifier::postScreens()
{
    ++m_pendingScreens;
    post(Source::screens, [this] {
        --m_pendingScreens;
        screens.publish();
    });
}

void SimNotifier::postWindowServer(WindowServerEvent event, WindowNumber window)
{
    post(Source::windowServer, [this, event, window] { windowServer.publish(event, window); });
}

void SimNotifier::postMouse(EventType type, SimMouseTarget target)
{
    post(Source::input, [this, type, target] { mouse.publish(type, target); });
}

void SimNotifier::postTap(const TapEvent& event)
{
    post(Source::input, [this, event] { tap.publish(event); });
}

void SimNotifier::postAccessibility(ProcessID pid, std::string_view name)
{
    SimApp* app = m_model.app(pid);
    if (!app)
        return;
    if (!app->responsive) {
        app->heldNotifications.emplace_back(name);
        return;
    }
    post(Source::accessibility, [this, pid, text = std::string(name)] { accessibility.publish(pid, text); });
}

void SimNotifier::releaseHeld(SimApp& app)
{
    const auto held = std::exchange(app.heldNotifications, {});
    for (const auto& name : held)
        postAccessibility(app.pid, name);
}

void SimNotifier::postVanished()
{
    for (const WindowNumber window : m_model.takeVanished())
        postWindowServer(WindowServerEvent::orderedOut, window);
}

} // namespace haloric
