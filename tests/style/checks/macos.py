"""The names that the macOS application looks up at run time, and its information dictionary, are spelled right.

The compiler checks the declared names and, by static_assert, the numbers. These are strings: only a run could find a
slip, and most machines that build the application cannot run it.
"""

import plistlib
import re

import project as common

# Wherever these stand in the sources that macOS runs; every other literal of such a shape is a slip, or new.
SYMBOLS = {
    # The window server's library and its functions.
    "/System/Library/PrivateFrameworks/SkyLight.framework/SkyLight",
    "SLSMainConnectionID", "SLSGetWindowBounds", "SLSRegisterNotifyProc", "SLSRemoveNotifyProc",
    "SLSRequestNotificationsForWindows", "SLSTransactionCreate", "SLSTransactionMoveWindowWithGroup",
    "SLSTransactionCommit",
    # Accessibility: attributes, roles, notifications, and the function that gives an element's window.
    "AXFocusedWindow", "AXMainWindow", "AXMinimized", "AXPosition", "AXSize", "AXRole", "AXCloseButton", "AXWindow",
    "AXApplication", "AXSheet", "AXButton", "AXUnknown",
    "AXFocusedWindowChanged", "AXMainWindowChanged", "AXWindowMoved", "AXWindowResized", "AXWindowMiniaturized",
    "AXWindowDeminiaturized", "AXWindowCreated", "AXUIElementDestroyed", "AXApplicationHidden", "AXApplicationShown",
    "AXFocusedUIElementChanged", "_AXUIElementGetWindow",
    # A key of a screen's description, and the update framework.
    "NSScreenNumber", "Sparkle.framework", "SPUStandardUpdaterController",
}
LITERAL = re.compile(r'"((?:SLS|_?AX[A-Z]|SPU[A-Z]|NS[A-Z])\w+|[\w/]*\w\.framework(?:/\w+)?)"')
OTHER_HOSTS = tuple(f"src/hosts/{host}/" for host in ("linux", "sim", "x11"))

INFORMATION = "packaging/macos/Info.plist.in"
INFORMATION_VALUES = {
    "CFBundleExecutable": "Haloric",
    "CFBundleIconFile": "Haloric",
    "CFBundleIdentifier": "com.kestrow.haloric",
    "CFBundleName": "Haloric",
    "CFBundlePackageType": "APPL",
    "CFBundleShortVersionString": "${PROJECT_VERSION}",
    "CFBundleVersion": "${HALORIC_BUILD_NUMBER}",
    "LSMinimumSystemVersion": "${CMAKE_OSX_DEPLOYMENT_TARGET}",
    "LSUIElement": True,
    "NSHighResolutionCapable": True,
    "NSPrincipalClass": "NSApplication",
}


def check_information(project):
    text = project.read(INFORMATION).replace("${HALORIC_UPDATE_KEYS}", "")
    values = plistlib.loads(text.encode())
    for key, value in INFORMATION_VALUES.items():
        if values.get(key) != value:
            project.problem(INFORMATION, f"{key} is {values.get(key)!r}, not {value!r}")


def check(project, _):
    if (project.root / INFORMATION).is_file():
        check_information(project)
    paths = [path for path in project.cpp_files("src/") if not str(path).startswith(OTHER_HOSTS)]
    used = set()
    for path in paths:
        text = project.read(path)
        for found in LITERAL.finditer(text):
            used.add(found.group(1))
            if found.group(1) not in SYMBOLS:
                project.problem(path, f"{found.group()} is not a name that the check of macOS knows",
                                text.count("\n", 0, found.start()) + 1)
    if any(str(path).startswith("src/hosts/macos/") for path in paths):
        for name in sorted(SYMBOLS - used):
            project.problem("src", f'"{name}" is used nowhere')


if __name__ == "__main__":
    common.run(check)
