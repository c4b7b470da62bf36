#include "testing/x11/DesktopObserver.h"

#include <algorithm>

#include <xcb/composite.h>
#include <xcb/res.h>

namespace haloric {

DesktopObserver::DesktopObserver(const std::string& display) : TestConnection(display)
{
    const std::uint32_t events[] = {XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
    xcb_change_window_attributes(raw(), root(), XCB_CW_EVENT_MASK, events);
    synchronize();
}

bool DesktopObserver::hasWindowManager()
{
    const auto check = value(root(), "_NET_SUPPORTING_WM_CHECK");
    return check && value(*check, "_NET_SUPPORTING_WM_CHECK") == check;
}

bool DesktopObserver::windowManagerAnswers()
{
    if (m_probe == XCB_WINDOW_NONE) {
        m_probe = xcb_generate_id(raw());
        xcb_create_window(raw(), XCB_COPY_FROM_PARENT, m_probe, root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
    }
    if (value(m_probe, "_NET_FRAME_EXTENTS")) {
        // Destroying the window discards late answers to repeated requests.
        xcb_destroy_window(raw(), m_probe);
        m_probe = XCB_WINDOW_NONE;
        return true;
    }
    sendToRoot(m_probe, "_NET_REQUEST_FRAME_EXTENTS", {});
    return false;
}

bool DesktopObserver::hasCompositor() { return isOwned("_NET_WM_CM_S0"); }

// Only a redirected window has a pixmap to name.
bool DesktopObserver::compositorDraws()
{
    if (m_mappedProbe == XCB_WINDOW_NONE) {
        m_mappedProbe = xcb_generate_id(raw());
        const std::uint32_t isOverrideRedirect = 1;
        xcb_create_window(raw(), XCB_COPY_FROM_PARENT, m_mappedProbe, root(), -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                          &isOverrideRedirect);
        xcb_map_window(raw(), m_mappedProbe);
    }
    const xcb_pixmap_t picture = xcb_generate_id(raw());
    const auto naming = xcb_composite_name_window_pixmap_checked(raw(), m_mappedProbe, picture);
    if (const Reply<xcb_generic_error_t> error(xcb_request_check(raw(), naming)); error)
        return false;
    xcb_free_pixmap(raw(), picture);
    xcb_destroy_window(raw(), m_mappedProbe);
    m_mappedProbe = XCB_WINDOW_NONE;
    return true;
}

bool DesktopObserver::hasTray() { return isOwned("_NET_SYSTEM_TRAY_S0"); }

bool DesktopObserver::isOwned(const std::string& selection)
{
    const Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(raw(), xcb_get_selection_owner(raw(), atom(selection)), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

xcb_window_t DesktopObserver::activeWindow() { return value(root(), "_NET_ACTIVE_WINDOW").value_or(XCB_WINDOW_NONE); }

std::vector<xcb_window_t> DesktopObserver::clientList() { return values(root(), "_NET_CLIENT_LIST"); }

std::vector<xcb_window_t> DesktopObserver::clientListStacking() { return values(root(), "_NET_CLIENT_LIST_STACKING"); }

std::vector<RootChild> DesktopObserver::rootChildren()
{
    const Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(raw(), xcb_query_tree(raw(), root()), nullptr));
    if (!tree)
        return {};
    std::vector<RootChild> children;
    const xcb_window_t* windows = xcb_query_tree_children(tree.get());
    for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
        const xcb_window_t window = windows[index];
        const auto attributesCookie = xcb_get_window_attributes(raw(), window);
        const auto geometryCookie = xcb_get_geometry(raw(), window);
        const Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(raw(), attributesCookie, nullptr));
        const Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(raw(), geometryCookie, nullptr));
        if (!attributes || !geometry)
            continue;
        children.push_back({window,
                            {geometry->x, geometry->y, geometry->width, geometry->height},
                            attributes->map_state == XCB_MAP_STATE_VIEWABLE,
                            attributes->override_redirect != 0,
                            geometry->depth,
                            processOf(window)});
    }
    return children;
}

std::vector<RootChild> DesktopObserver::overlaysOf(pid_t process)
{
    auto children = rootChildren();
    std::erase_if(children, [process](const RootChild& child) {
        return child.process != process || !child.isMapped || !child.isOverrideRedirect;
    });
    return children;
}

xcb_window_t DesktopObserver::topLevelOf(xcb_window_t window)
{
    while (true) {
        const Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(raw(), xcb_query_tree(raw(), window), nullptr));
        if (!tree)
            return XCB_WINDOW_NONE;
        if (tree->parent == root())
            return window;
        window = tree->parent;
    }
}

int DesktopObserver::stackingIndexOf(xcb_window_t window)
{
    const auto children = rootChildren();
    const auto found = std::find_if(children.begin(), children.end(),
                                    [window](const RootChild& child) { return child.window == window; });
    return found == children.end() ? -1 : static_cast<int>(found - children.begin());
}

ScreenRect DesktopObserver::rectOnRoot(xcb_window_t window)
{
    const auto geometryCookie = xcb_get_geometry(raw(), window);
    const auto originCookie = xcb_translate_coordinates(raw(), window, root(), 0, 0);
    const Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(raw(), geometryCookie, nullptr));
    const Reply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(raw(), originCookie, nullptr));
    if (!geometry || !origin)
        return {};
    return {origin->dst_x, origin->dst_y, geometry->width, geometry->height};
}

xcb_window_t DesktopObserver::focusedWindow()
{
    const Reply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(raw(), xcb_get_input_focus(raw()), nullptr));
    return focus ? focus->focus : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

void DesktopObserver::setDesktopPicture(const ScreenImage& picture)
{
    const xcb_pixmap_t background = makePixmap(picture);
    xcb_change_window_attributes(raw(), root(), XCB_CW_BACK_PIXMAP, &background);
    xcb_clear_area(raw(), 0, root(), 0, 0, 0, 0);
    for (const char* property : {"_XROOTPMAP_ID", "ESETROOT_PMAP_ID", "_XSETROOT_ID"})
        setValues(root(), property, XCB_ATOM_PIXMAP, {background});
    synchronize();
}

pid_t DesktopObserver::processOf(xcb_window_t window)
{
    const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const Reply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(raw(), xcb_res_query_client_ids(raw(), 1, &wanted), nullptr));
    if (!reply)
        return 0;
    const auto answer = xcb_res_query_client_ids_ids_iterator(reply.get());
    if (answer.rem == 0 || xcb_res_client_id_value_value_length(answer.data) == 0)
        return 0;
    return static_cast<pid_t>(*xcb_res_client_id_value_value(answer.data));
}

} // namespace haloric
