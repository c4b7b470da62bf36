"""What portable code has the macOS adapters hand on to the system, a second time.

The numbers and names are the system's, in files that include none of its headers. Fragments of the source, as in
macos_table.py.
"""

# By the file's path.
PORTABLE = {
    "src/menubar/HotkeyManager.h": [
        "kCommandKey = 0x100;", "kOptionKey = 0x800;", "kControlKey = 0x1000;", ".keyCode = 3",
        "kEventType{.eventClass = 0x6B657962, .kind = 5}", "0x484C5243", ".number = 1",
    ],
    "src/menubar/StatusBarController.cpp": [
        "kTitled = 1;", "kClosable = 2;", "kMiniaturizable = 4;", ".contentSize = {440, 560}",
        ".isReleasedWhenClosed = false", "kCreditsFontSize = 11;",
    ],
    "src/overlay/OverlayWindow.cpp": [
        "kBorderless = 0;", "kBuffered = 2;", "kNoAnimation = 2;", "kFloatingLevel = 3;", "kMoveToActiveSpace = 2;",
        "kTransient = 8;", "kIgnoresCycle = 64;", "kFullScreenAuxiliary = 256;",
        "kMoveToActiveSpace | kTransient | kIgnoresCycle | kFullScreenAuxiliary;",
    ],
    "src/overlay/ScreenshotHotkeyMonitor.cpp": [
        "kKeycode4 = 21;", "kKeycode5 = 23;", "kKeycodeEscape = 53;", "kShift = 0x20000;", "kOption = 0x80000;",
        "kCommand = 0x100000;", "TapLocation::session, TapPlacement::headInsert, TapOptions::listenOnly,",
        "maskOf(EventType::keyDown) | maskOf(EventType::leftMouseUp)}",
    ],
    "src/platform/InputMonitors.h": [
        "leftMouseDown = 1,", "leftMouseUp = 2,", "rightMouseDown = 3,", "rightMouseUp = 4,", "keyDown = 10,",
        "otherMouseDown = 25,", "otherMouseUp = 26,", "tapDisabledByTimeout = 0xFFFFFFFE,",
        "tapDisabledByUserInput = 0xFFFFFFFF,",
    ],
    "src/platform/Alerts.h": ["informational = 1,", "kFirstButton = 1000;"],
    "src/platform/StatusItems.h": ["kSquareLength = -2.0;"],
    "src/settings/AccessibilityGrant.h": [
        '"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"',
    ],
    "src/settings/SettingsStore.h": ['kDefaultsKey = "Haloric.settings.v1"'],
    "src/tracking/AXFocusWorker.h": ["kTimeoutSeconds = 0.25F;"],
    "src/tracking/AXObservation.cpp": [
        '"AXFocusedWindowChanged", "AXMainWindowChanged", "AXWindowMoved", "AXWindowResized", "AXWindowMiniaturized", '
        '"AXWindowDeminiaturized", "AXWindowCreated", "AXUIElementDestroyed", "AXApplicationHidden", '
        '"AXApplicationShown", "AXFocusedUIElementChanged",',
    ],
    "src/tracking/AXQueries.cpp": ['"com.kestrow.haloric.accessibility"', "QualityOfService::userInitiated"],
    "src/tracking/FocusFrames.cpp": ["WindowListOptions::includingWindow"],
    "src/tracking/FocusTracker.cpp": [
        "kMousePresses = maskOf(EventType::leftMouseDown) | maskOf(EventType::rightMouseDown) | "
        "maskOf(EventType::otherMouseDown);",
        "kMouseReleases = maskOf(EventType::leftMouseUp) | maskOf(EventType::rightMouseUp) | "
        "maskOf(EventType::otherMouseUp);",
    ],
    "src/windowserver/WindowList.cpp": ["WindowListOptions::onScreenOnly | WindowListOptions::excludeDesktopElements"],
    "src/windowserver/WindowServer.h": [
        '"/System/Library/PrivateFrameworks/SkyLight.framework/SkyLight"', '"HALORIC_DISABLE_WINDOWSERVER_FAST_PATH"',
    ],
    "src/windowserver/WindowServerEntries.cpp": [
        '"SLSMainConnectionID"', '"SLSGetWindowBounds"', '"SLSRegisterNotifyProc"', '"SLSRemoveNotifyProc"',
        '"SLSRequestNotificationsForWindows"', '"SLSTransactionCreate"', '"SLSTransactionMoveWindowWithGroup"',
        '"SLSTransactionCommit"',
    ],
    "src/windowserver/WindowServerNotifications.cpp": ["kEvents{804, 806, 807, 816};"],
}
