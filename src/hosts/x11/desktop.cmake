# The adapters that look at other people's windows: focus, frames, applications, screens.
pkg_check_modules(HALORIC_X11_DESKTOP REQUIRED IMPORTED_TARGET xcb-randr xcb-res)
pkg_check_modules(HALORIC_GIO REQUIRED IMPORTED_TARGET gio-unix-2.0)

haloric_library(haloric_x11_desktop
    X11Accessibility.cpp
    X11ApplicationCatalog.cpp
    X11ApplicationFiles.cpp
    X11ApplicationWindows.cpp
    X11AXObserver.cpp
    X11ClientNotice.cpp
    X11ClientReader.cpp
    X11ClientTable.cpp
    X11Clients.cpp
    X11DesktopAtoms.cpp
    X11DesktopEntries.cpp
    X11FrameGeometry.cpp
    X11FrameWatch.cpp
    X11Monitor.cpp
    X11ProcessIds.cpp
    X11Property.cpp
    X11Scale.cpp
    X11Screens.cpp
    X11WatchedWindow.cpp
    X11WindowInfoSource.cpp
    X11WindowManager.cpp
    X11WindowServer.cpp
    X11WindowServerLibrary.cpp
    X11Workspace.cpp
    DEPENDS haloric_x11_base PkgConfig::HALORIC_X11_DESKTOP)
# Its compiler options stay here: they do not go with the precompiled header of the tests.
target_link_libraries(haloric_x11_desktop PRIVATE PkgConfig::HALORIC_GIO haloric_posix)
