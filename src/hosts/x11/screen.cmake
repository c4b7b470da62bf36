# The adapters that draw, listen and run.
pkg_check_modules(HALORIC_X11_SCREEN REQUIRED IMPORTED_TARGET
    xcb-present xcb-shape xcb-shm xcb-xfixes xcb-xinput)

haloric_library(haloric_x11
    CommandLine.cpp
    X11Application.cpp
    X11BlendedSurface.cpp
    X11Bundle.cpp
    X11ClickThroughWindow.cpp
    X11Compositor.cpp
    X11DataAddSource.cpp
    X11Diagnostics.cpp
    X11DiagnosticsSources.cpp
    X11DisplayLinks.cpp
    X11EventTap.cpp
    X11Hotkeys.cpp
    X11ImageUploader.cpp
    X11InfoDictionary.cpp
    X11InputMonitors.cpp
    X11KeyCombination.cpp
    X11KeyNames.cpp
    X11Keyboard.cpp
    X11MapEcho.cpp
    X11Onboarding.cpp
    X11OverlayStack.cpp
    X11OwnWindows.cpp
    X11PixelRegion.cpp
    X11PresentClock.cpp
    X11RawInput.cpp
    X11RingSurface.cpp
    X11RootChildren.cpp
    X11ScreenLink.cpp
    X11SerialQueues.cpp
    X11SharedPixels.cpp
    X11StackPlan.cpp
    X11TerminationSignals.cpp
    X11ToolkitWindow.cpp
    X11ToolkitWindows.cpp
    X11TranslucentVisual.cpp
    X11ViewContent.cpp
    instance/X11InstanceClient.cpp
    instance/X11InstanceContact.cpp
    instance/X11InstancePlace.cpp
    instance/X11InstanceSeat.cpp
    instance/X11InstanceServer.cpp
    DEPENDS haloric_x11_desktop haloric_raster haloric_windowserver haloric_app haloric_user_defaults PkgConfig::HALORIC_X11_SCREEN)
