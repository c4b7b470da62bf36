#include "hosts/x11/server/X11DesktopAtoms.h"

#include "hosts/x11/server/X11Connection.h"

namespace haloric {

X11DesktopAtoms::X11DesktopAtoms(X11Connection& connection)
    : activeWindow(connection.atom("_NET_ACTIVE_WINDOW")),
      clientList(connection.atom("_NET_CLIENT_LIST")),
      clientListStacking(connection.atom("_NET_CLIENT_LIST_STACKING")),
      currentDesktop(connection.atom("_NET_CURRENT_DESKTOP")),
      showingDesktop(connection.atom("_NET_SHOWING_DESKTOP")),
      supported(connection.atom("_NET_SUPPORTED")),
      supportingCheck(connection.atom("_NET_SUPPORTING_WM_CHECK")),
      applicationId(connection.atom("_GTK_APPLICATION_ID")),
      desktop(connection.atom("_NET_WM_DESKTOP")),
      frameExtents(connection.atom("_NET_FRAME_EXTENTS")),
      gtkFrameExtents(connection.atom("_GTK_FRAME_EXTENTS")),
      icccmState(connection.atom("WM_STATE")),
      name(connection.atom("_NET_WM_NAME")),
      opacity(connection.atom("_NET_WM_WINDOW_OPACITY")),
      pid(connection.atom("_NET_WM_PID")),
      state(connection.atom("_NET_WM_STATE")),
      windowType(connection.atom("_NET_WM_WINDOW_TYPE")),
      stateAbove(connection.atom("_NET_WM_STATE_ABOVE")),
      stateFullScreen(connection.atom("_NET_WM_STATE_FULLSCREEN")),
      stateHidden(connection.atom("_NET_WM_STATE_HIDDEN")),
      stateShaded(connection.atom("_NET_WM_STATE_SHADED")),
      typeDesktop(connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP")),
      typeDialog(connection.atom("_NET_WM_WINDOW_TYPE_DIALOG")),
      typeDock(connection.atom("_NET_WM_WINDOW_TYPE_DOCK")),
      typeNormal(connection.atom("_NET_WM_WINDOW_TYPE_NORMAL")),
      typeUtility(connection.atom("_NET_WM_WINDOW_TYPE_UTILITY")),
      typeMenu(connection.atom("_NET_WM_WINDOW_TYPE_MENU")),
      typeNotification(connection.atom("_NET_WM_WINDOW_TYPE_NOTIFICATION")),
      typeSplash(connection.atom("_NET_WM_WINDOW_TYPE_SPLASH")),
      typeToolbar(connection.atom("_NET_WM_WINDOW_TYPE_TOOLBAR")),
      typeTooltip(connection.atom("_NET_WM_WINDOW_TYPE_TOOLTIP"))
{
}

} // namespace haloric
