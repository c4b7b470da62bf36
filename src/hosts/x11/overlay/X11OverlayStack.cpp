#include "hosts/x11/overlay/X11OverlayStack.h"

#include <algorithm>

namespace haloric {

namespace {

// Windows that are kept above others stay above the overlays, too, unless they have the focus.
bool isOrdinary(const X11Client& client, std::uint32_t currentDesktop)
{
    return client.isForWork() && !client.above && client.isSeenOn(currentDesktop);
}

} // namespace

X11StackPlan X11StackPlan::make(std::span<const X11StackEntry> children, std::span<const std::uint32_t> overlays)
{
    const auto isBelowOverlays = [](const X11StackEntry& entry) {
        return entry.role == X11StackRole::ordinary || entry.role == X11StackRole::focused;
    };
    const auto highest = std::find_if(children.rbegin(), children.rend(), isBelowOverlays);
    if (highest == children.rend())
        return {};
    const auto above = children.subspan(static_cast<std::size_t>(children.rend() - highest));
    const bool isInPlace = above.size() >= overlays.size() &&
                           std::ranges::equal(above.first(overlays.size()), overlays, {}, &X11StackEntry::window);
    return {highest->window, isInPlace};
}

X11OverlayStack::X11OverlayStack(X11Connection& connection, const X11ClientTable& clients)
    : m_connection(connection),
      m_clients(clients)
{
    connection.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
    listen();
}

void X11OverlayStack::listen()
{
    const auto keep = [this](Subscription subscription) { m_subscriptions.push_back(std::move(subscription)); };
    keep(m_connection.onEvent<xcb_configure_notify_event_t>(XCB_CONFIGURE_NOTIFY,
                                                            [this](const auto& event) { noticeConfigure(event); }));
    keep(m_connection.onEvent<xcb_map_notify_event_t>(XCB_MAP_NOTIFY,
                                                      [this](const auto& event) { noticeOthers(event.window); }));
    keep(m_connection.onEvent<xcb_unmap_notify_event_t>(XCB_UNMAP_NOTIFY,
                                                        [this](const auto& event) { noticeOthers(event.window); }));
    keep(m_connection.onEvent<xcb_destroy_notify_event_t>(XCB_DESTROY_NOTIFY, [this](const auto& event) {
        m_siblingsBelow.erase(event.window);
        noticeOthers(event.window);
    }));
    keep(m_connection.onEvent<xcb_reparent_notify_event_t>(XCB_REPARENT_NOTIFY, [this](const auto& event) {
        if (event.parent != m_connection.root())
            m_siblingsBelow.erase(event.window); // no further event reports it, nor its end
        noticeOthers(event.window);
    }));
    keep(m_connection.onEvent<xcb_circulate_notify_event_t>(XCB_CIRCULATE_NOTIFY,
                                                            [this](const auto& event) { noticeOthers(event.window); }));
    keep(m_connection.onEvent<xcb_property_notify_event_t>(XCB_PROPERTY_NOTIFY, [this](const auto& event) {
        const X11Atoms& atoms = m_connection.atoms();
        if (event.window == m_connection.root() &&
            (event.atom == atoms.activeWindow || event.atom == atoms.clientListStacking))
            m_isDue = true;
    }));
}

void X11OverlayStack::noticeConfigure(const xcb_configure_notify_event_t& event)
{
    if (event.event != m_connection.root())
        return;
    if (isOverlay(event.window)) {
        // It may now be between that sibling and the window that was directly above it.
        std::erase_if(m_siblingsBelow, [&event](const auto& known) { return known.second == event.above_sibling; });
        return;
    }
    // A window that only moves or grows keeps its sibling. If another window went between, the pass has no effect.
    const auto [known, isNew] = m_siblingsBelow.try_emplace(event.window, event.above_sibling);
    if (!isNew && known->second == event.above_sibling)
        return;
    known->second = event.above_sibling;
    m_isDue = true;
}

void X11OverlayStack::noticeOthers(xcb_window_t window) { m_isDue = m_isDue || !isOverlay(window); }

bool X11OverlayStack::isOverlay(xcb_window_t window) const
{
    return std::ranges::find(m_shown, window) != m_shown.end();
}

void X11OverlayStack::orderFront(xcb_window_t window)
{
    const bool wasShown = std::erase(m_shown, window) > 0;
    m_shown.push_back(window);
    if (!wasShown)
        m_unmapped.push_back(window);
    m_isDue = true;
}

void X11OverlayStack::orderOut(xcb_window_t window)
{
    if (std::erase(m_shown, window) == 0)
        return;
    if (std::erase(m_unmapped, window) == 0)
        xcb_unmap_window(m_connection.raw(), window);
}

void X11OverlayStack::replace(xcb_window_t shown, xcb_window_t replacement)
{
    const auto place = std::ranges::find(m_shown, shown);
    if (place == m_shown.end())
        return;
    if (std::erase(m_unmapped, shown) == 0)
        xcb_unmap_window(m_connection.raw(), shown);
    *place = replacement;
    m_unmapped.push_back(replacement);
    m_isDue = true;
}

bool X11OverlayStack::update()
{
    if (!m_isDue)
        return false;
    m_isDue = false;
    if (m_shown.empty())
        return false;
    place();
    for (const xcb_window_t window : m_unmapped) {
        xcb_map_window(m_connection.raw(), window);
        m_mapped(window);
    }
    m_unmapped.clear();
    return true;
}

void X11OverlayStack::place()
{
    const auto plan = X11StackPlan::make(readChildren(), m_shown);
    if (!plan.anchor || plan.isInPlace)
        return;
    xcb_window_t below = *plan.anchor;
    for (const xcb_window_t window : m_shown) {
        const std::uint32_t values[] = {below, XCB_STACK_MODE_ABOVE};
        xcb_configure_window(m_connection.raw(), window, XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE,
                             values);
        below = window;
    }
}

// The children of the root from bottom to top, with what each means to the overlays. One round trip; empty if the
// connection is lost.
std::vector<X11StackEntry> X11OverlayStack::readChildren() const
{
    xcb_connection_t* raw = m_connection.raw();
    const auto cookie = xcb_query_tree(raw, m_connection.root());

    std::unordered_map<xcb_window_t, X11StackRole> roles;
    const std::uint32_t desktop = m_clients.state().currentDesktop;
    for (const X11Client* client : m_clients.stacking()) {
        if (isOrdinary(*client, desktop))
            roles[client->frame] = X11StackRole::ordinary;
    }
    if (const X11Client* active = m_clients.active())
        roles[active->frame] = X11StackRole::focused;
    for (const xcb_window_t overlay : m_shown)
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
