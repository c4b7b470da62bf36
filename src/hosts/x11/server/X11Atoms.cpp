#include "hosts/x11/server/X11Atoms.h"

#include "hosts/x11/server/XcbReply.h"

#include <array>
#include <string>
#include <string_view>

namespace haloric {

namespace {

struct Entry {
    xcb_atom_t X11Atoms::*atom;
    std::string_view name;
    bool endsWithScreenNumber = false;
};

constexpr auto kTable = std::to_array<Entry>({
    {&X11Atoms::activeWindow, "_NET_ACTIVE_WINDOW"},
    {&X11Atoms::clientList, "_NET_CLIENT_LIST"},
    {&X11Atoms::clientListStacking, "_NET_CLIENT_LIST_STACKING"},
    {&X11Atoms::currentDesktop, "_NET_CURRENT_DESKTOP"},
    {&X11Atoms::showingDesktop, "_NET_SHOWING_DESKTOP"},
    {&X11Atoms::supported, "_NET_SUPPORTED"},
    {&X11Atoms::supportingCheck, "_NET_SUPPORTING_WM_CHECK"},
    {&X11Atoms::applicationId, "_GTK_APPLICATION_ID"},
    {&X11Atoms::bypassCompositor, "_NET_WM_BYPASS_COMPOSITOR"},
    {&X11Atoms::desktop, "_NET_WM_DESKTOP"},
    {&X11Atoms::frameExtents, "_NET_FRAME_EXTENTS"},
    {&X11Atoms::gtkFrameExtents, "_GTK_FRAME_EXTENTS"},
    {&X11Atoms::icccmState, "WM_STATE"},
    {&X11Atoms::name, "_NET_WM_NAME"},
    {&X11Atoms::opacity, "_NET_WM_WINDOW_OPACITY"},
    {&X11Atoms::pid, "_NET_WM_PID"},
    {&X11Atoms::shadow, "_COMPTON_SHADOW"},
    {&X11Atoms::state, "_NET_WM_STATE"},
    {&X11Atoms::windowType, "_NET_WM_WINDOW_TYPE"},
    {&X11Atoms::stateAbove, "_NET_WM_STATE_ABOVE"},
    {&X11Atoms::stateHidden, "_NET_WM_STATE_HIDDEN"},
    {&X11Atoms::stateShaded, "_NET_WM_STATE_SHADED"},
    {&X11Atoms::typeDesktop, "_NET_WM_WINDOW_TYPE_DESKTOP"},
    {&X11Atoms::typeDialog, "_NET_WM_WINDOW_TYPE_DIALOG"},
    {&X11Atoms::typeDock, "_NET_WM_WINDOW_TYPE_DOCK"},
    {&X11Atoms::typeMenu, "_NET_WM_WINDOW_TYPE_MENU"},
    {&X11Atoms::typeNormal, "_NET_WM_WINDOW_TYPE_NORMAL"},
    {&X11Atoms::typeNotification, "_NET_WM_WINDOW_TYPE_NOTIFICATION"},
    {&X11Atoms::typeSplash, "_NET_WM_WINDOW_TYPE_SPLASH"},
    {&X11Atoms::typeToolbar, "_NET_WM_WINDOW_TYPE_TOOLBAR"},
    {&X11Atoms::typeTooltip, "_NET_WM_WINDOW_TYPE_TOOLTIP"},
    {&X11Atoms::typeUtility, "_NET_WM_WINDOW_TYPE_UTILITY"},
    {&X11Atoms::utf8String, "UTF8_STRING"},
    {&X11Atoms::compositor, "_NET_WM_CM_S", true},
    {&X11Atoms::tray, "_NET_SYSTEM_TRAY_S", true},
    {&X11Atoms::manager, "MANAGER"},
    {&X11Atoms::trayOpcode, "_NET_SYSTEM_TRAY_OPCODE"},
    {&X11Atoms::trayVisual, "_NET_SYSTEM_TRAY_VISUAL"},
    {&X11Atoms::trayColors, "_NET_SYSTEM_TRAY_COLORS"},
    {&X11Atoms::embedInfo, "_XEMBED_INFO"},
});
static_assert(sizeof(X11Atoms) == kTable.size() * sizeof(xcb_atom_t), "each member has one line");

} // namespace

X11Atoms::X11Atoms(xcb_connection_t* connection, int screenNumber)
{
    std::array<xcb_intern_atom_cookie_t, kTable.size()> cookies{};
    for (std::size_t index = 0; index < kTable.size(); ++index) {
        std::string name(kTable[index].name);
        if (kTable[index].endsWithScreenNumber)
            name += std::to_string(screenNumber);
        cookies[index] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    }
    for (std::size_t index = 0; index < kTable.size(); ++index) {
        const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookies[index], nullptr));
        this->*kTable[index].atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
}

} // namespace haloric
