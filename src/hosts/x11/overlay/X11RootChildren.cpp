#include "hosts/x11/overlay/X11RootChildren.h"

#include <unordered_map>

namespace haloric {

namespace {

// Windows that are kept above others stay above the overlays, too, unless they have the focus.
bool isOrdinary(const X11Client& client, std::uint32_t currentDesktop)
{
    return client.isForWork() && !client.above && client.isSeenOn(currentDesktop);
}

} // namespace

std::vector<X11StackEntry> X11RootChildren::read(std::span<const xcb_window_t> overlays) const
{
    xcb_connection_t* raw = m_connection.raw();
    const auto cookie = xcb_query_tree(raw, m_connection.root());

    std::unordered_map<xcb_window_t, X11StackRole> roles;
    const std::uint32_t desktop = m_clients.state().currentDesktop;
    for (const X11Client& client : m_clients.stacking()) {
        if (isOrdinary(client, desktop))
            roles[client.frame] = X11StackRole::ordinary;
    }
    if (const auto active = m_clients.active())
        roles[active->frame] = X11StackRole::focused;
    for (const xcb_window_t overlay : overlays)
        roles[overlay] = X11StackRole::overlay;

    const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(raw, cookie, nullptr));
    if (!tree)
        return {};
    const std::span<const xcb_window_t> order(xcb_query_tree_children(tree.get()),
                                              static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    std::vector<X11StackEntry> entries;
    entries.reserve(order.size());
    for (const xcb_window_t window : order) {
        const auto role = roles.find(window);
        entries.push_back({window, role == roles.end() ? X11StackRole::other : role->second});
    }
    return entries;
}

} // namespace haloric
