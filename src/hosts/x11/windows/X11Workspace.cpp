#include "hosts/x11/windows/X11Workspace.h"

#include "hosts/posix/PosixSignals.h"

#include <algorithm>
#include <memory>
#include <thread>
#include <utility>

#include <gio/gdesktopappinfo.h>

namespace haloric {

namespace {

constexpr std::string_view kForeignScheme = "x-apple";

// As g_app_info_launch_default_for_uri, but the application does not inherit this program's blocked signals, which
// could not end it.
void openWithHandler(std::string address)
{
    const std::unique_ptr<char, decltype(&g_free)> scheme(g_uri_parse_scheme(address.c_str()), &g_free);
    GAppInfo* const handler = scheme ? g_app_info_get_default_for_uri_scheme(scheme.get()) : nullptr;
    if (!handler)
        return;
    GList addresses{address.data(), nullptr, nullptr};
    g_desktop_app_info_launch_uris_as_manager(
        G_DESKTOP_APP_INFO(handler), &addresses, nullptr, G_SPAWN_SEARCH_PATH, [](gpointer) { PosixSignals::reset(); },
        nullptr, nullptr, nullptr, nullptr);
    g_object_unref(handler);
}

} // namespace

X11Workspace::X11Workspace(X11Clients& clients, RunLoop& runLoop)
    : m_clients(clients),
      m_runLoop(runLoop),
      m_frontmost(lookForFrontmost()),
      m_desktop(clients.table().state().currentDesktop),
      m_processes(clients.table().processes()),
      m_passes(clients.onPass([this] { takeIn(); }))
{
}

std::optional<FrontmostApplication> X11Workspace::lookForFrontmost() const
{
    const X11Client* active = m_clients.table().active();
    if (!active)
        return std::nullopt;
    return FrontmostApplication{active->pid, m_clients.table().isHidden(active->pid)};
}

void X11Workspace::takeIn()
{
    const auto desktop = m_clients.table().state().currentDesktop;
    auto processes = m_clients.table().processes();
    const bool switched = std::exchange(m_desktop, desktop) != desktop;
    const bool terminated = !std::ranges::includes(processes, m_processes);
    m_processes = std::move(processes);

    auto frontmost = lookForFrontmost();
    if (!frontmost)
        frontmost = bridgeGap();
    else
        m_gapEnd.reset();
    const bool activated = replaceFrontmost(frontmost);

    if (switched)
        publish(WorkspaceNotification::activeSpaceDidChange);
    if (activated)
        publish(WorkspaceNotification::didActivateApplication);
    if (terminated)
        publish(WorkspaceNotification::didTerminateApplication);
}

std::optional<FrontmostApplication> X11Workspace::bridgeGap()
{
    if (!m_frontmost || !std::ranges::binary_search(m_processes, m_frontmost->pid)) {
        m_gapEnd.reset();
        return std::nullopt;
    }
    if (!m_gapEnd) {
        m_gapEnd = m_runLoop.scheduleOnce(kFocusGap, [this] {
            m_gapEnd.reset();
            if (replaceFrontmost(lookForFrontmost()))
                publish(WorkspaceNotification::didActivateApplication);
        });
    }
    return FrontmostApplication{m_frontmost->pid, m_clients.table().isHidden(m_frontmost->pid)};
}

// True when that is an activation.
bool X11Workspace::replaceFrontmost(std::optional<FrontmostApplication> frontmost)
{
    const auto before = std::exchange(m_frontmost, frontmost);
    if (!before || !frontmost)
        return before.has_value() != frontmost.has_value();
    return before->pid != frontmost->pid || (before->hidden && !frontmost->hidden);
}

void X11Workspace::publish(WorkspaceNotification notification)
{
    m_publishers.at(static_cast<std::size_t>(notification)).publish();
}

std::optional<std::string> X11Workspace::bundleIdentifier(ProcessID pid) const
{
    const ApplicationNames* names = m_clients.table().names(pid);
    return names ? m_entries.identifier(*names) : std::nullopt;
}

Subscription X11Workspace::observe(WorkspaceNotification notification, Task handler)
{
    return m_publishers.at(static_cast<std::size_t>(notification)).subscribe(std::move(handler));
}

void X11Workspace::openURL(std::string_view url)
{
    if (url.starts_with(kForeignScheme))
        return;
    std::thread(openWithHandler, std::string(url)).detach();
}

} // namespace haloric
