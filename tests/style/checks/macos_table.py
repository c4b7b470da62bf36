"""What the macOS adapters hand to the system, a second time.

They cannot run on most machines that build them. So every constant, name and option stands here as well, as a fragment
of the source that uses it; white space and comments do not count. See macos.py.
"""

# Of the adapters, by the file in src/hosts/macos/.
ADAPTERS = {
    "MacAccessibility.mm": [
        "AXIsProcessTrusted()", "AXIsProcessTrustedWithOptions(", "kAXTrustedCheckOptionPrompt : @(prompt)",
        "AXUIElementCreateApplication(static_cast<pid_t>(pid))", "AXUIElementSetMessagingTimeout(",
        "AXUIElementCopyAttributeValue(", 'dlsym(RTLD_DEFAULT, "_AXUIElementGetWindow")', "CFHash(",
        "error != kAXErrorSuccess", "kAXErrorCannotComplete", "kAXErrorAttributeUnsupported", "kAXErrorNoValue", "number = kCGNullWindowID",
    ],
    "MacAXObserver.mm": [
        "AXObserverCreate(static_cast<pid_t>(pid)", "error == kAXErrorSuccess", "AXObserverAddNotification(",
        "CFRunLoopAddSource(CFRunLoopGetMain(), AXObserverGetRunLoopSource(m_observer.get()), kCFRunLoopCommonModes)",
        "CFRunLoopRemoveSource(CFRunLoopGetMain(), AXObserverGetRunLoopSource(m_observer.get()), kCFRunLoopCommonModes)",
    ],
    "MacAXValues.mm": [
        "type == AXUIElementGetTypeID()", "kPoint = static_cast<AXValueType>(kAXValueCGPointType)",
        "kSize = static_cast<AXValueType>(kAXValueCGSizeType)", "AXValueGetValue(value, kPoint, &point)",
        "AXValueGetValue(value, kSize, &size)",
    ],
    "MacAlerts.mm": [
        "NSAlertFirstButtonReturn == Alerts::kFirstButton", "NSApp.applicationIconImage", "[NSAlert alertWithError:",
    ],
    "MacApplication.mm": [
        "NSApplication.sharedApplication", "activateIgnoringOtherApps:YES", "terminate:nil",
        "NSProcessInfo.processInfo.processIdentifier", "contentLayoutRect.size.height",
    ],
    "MacApplicationCatalog.mm": [
        "NSWorkspace.sharedWorkspace.runningApplications", "URLForApplicationWithBundleIdentifier:",
        "NSFileManager.defaultManager displayNameAtPath:", "localizedCaseInsensitiveCompare:",
        "imageWithSystemSymbolName:",
    ],
    "MacBundle.mm": ["NSBundle.mainBundle.bundlePath", "NSBundle.mainBundle.infoDictionary["],
    "MacCanvas.mm": [
        "mode == BlendMode::clear ? kCGBlendModeClear : kCGBlendModeNormal",
        "operation == CompositingOperation::copy ? kCGBlendModeCopy : kCGBlendModeNormal", "CGContextEOClip(m_context)",
        "CGContextEOFillPath(m_context)", "CGContextSetShadowWithColor(m_context, offset, shadow.blurRadius,",
        "style.cap == LineCap::round ? kCGLineCapRound : kCGLineCapButt",
        "style.join == LineJoin::round ? kCGLineJoinRound : kCGLineJoinMiter",
    ],
    "MacContentView.mm": ["NSCompositingOperationCopy"],
    "MacConversions.mm": [
        "colorWithSRGBRed:color.red green:color.green blue:color.blue alpha:color.alpha",
        "colorUsingColorSpace:NSColorSpace.sRGBColorSpace", "kCFStringEncodingUTF8", "kCFAllocatorDefault",
        "dispatch_time(DISPATCH_TIME_NOW, ", "NSEC_PER_SEC",
    ],
    "MacDataAddSource.mm": [
        "dispatch_source_create(DISPATCH_SOURCE_TYPE_DATA_ADD, 0, 0, dispatch_get_main_queue())",
    ],
    "MacDisplayLinks.mm": ["@available(macOS 14.0, *)"],
    "MacErrors.mm": ["NSLocalizedDescriptionKey", "NSLocalizedRecoverySuggestionErrorKey"],
    "MacEventTap.mm": [
        "kCGSessionEventTap", "kCGHeadInsertEventTap", "kCGEventTapOptionListenOnly", "kCGEventTapDisabledByTimeout",
        "kCGEventTapDisabledByUserInput", "CGEventMaskBit(kCGEventKeyDown) | CGEventMaskBit(kCGEventLeftMouseUp)) == 1028",
        "static_cast<CGEventTapLocation>(description.location)", "static_cast<CGEventTapPlacement>(description.placement)",
        "static_cast<CGEventTapOptions>(description.options)",
        "CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode)", "type == kCGEventKeyDown",
        "CFMachPortCreateRunLoopSource(kCFAllocatorDefault, m_port.get(), 0)",
        "CFRunLoopAddSource(CFRunLoopGetMain(), source.get(), kCFRunLoopCommonModes)",
        "CGEventTapEnable(m_port.get(), true)",
    ],
    "MacFormRows.mm": ["_well.supportsAlpha = NO", "showsAlpha = NO"],
    "MacFormWindows.mm": [
        "(NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskMiniaturizable) == 7",
    ],
    "MacHotkeys.mm": [
        "InstallEventHandler(GetApplicationEventTarget(), &takeEvent, 1, &spec, context, &installed)",
        "RegisterEventHotKey(hotkey.keyCode, hotkey.modifiers, identity, GetApplicationEventTarget(), options, &registered)",
        "identity{hotkey.signature, hotkey.number}",
    ],
    "MacInputMonitors.mm": [
        "maskOf(EventType::leftMouseDown) | maskOf(EventType::leftMouseUp) | maskOf(EventType::rightMouseDown) | "
        "maskOf(EventType::rightMouseUp) | maskOf(EventType::otherMouseDown) | maskOf(EventType::otherMouseUp)",
        "NSEventMaskLeftMouseDown | NSEventMaskLeftMouseUp | NSEventMaskRightMouseDown | NSEventMaskRightMouseUp | "
        "NSEventMaskOtherMouseDown | NSEventMaskOtherMouseUp", "== 0x600001E",
        "addGlobalMonitorForEventsMatchingMask:eventMask(mask)", "addLocalMonitorForEventsMatchingMask:eventMask(mask)",
        "return event;", "NSEvent.pressedMouseButtons",
    ],
    "MacLog.mm": ['NSLog(@"%@", nsStringFrom(text))'],
    "MacLoginItemService.mm": [
        "SMAppServiceStatusNotRegistered", "SMAppServiceStatusEnabled", "SMAppServiceStatusRequiresApproval",
        "SMAppServiceStatusNotFound", "[SMAppService.mainAppService registerAndReturnError:",
        "[SMAppService.mainAppService unregisterAndReturnError:",
    ],
    "MacNotifications.mm": ["queue:NSOperationQueue.mainQueue"],
    "MacOverlayWindow.mm": [
        "NSWindowStyleMaskBorderless == 0", "NSBackingStoreBuffered == 2", "NSWindowAnimationBehaviorNone == 2",
        "(NSWindowCollectionBehaviorMoveToActiveSpace | NSWindowCollectionBehaviorTransient | "
        "NSWindowCollectionBehaviorIgnoresCycle | NSWindowCollectionBehaviorFullScreenAuxiliary) == 330",
        "self.level = configuration.level", "self.collectionBehavior = ", "NSColor.clearColor",
    ],
    "MacPanels.mm": [
        "NSAboutPanelOptionApplicationName : nsStringFrom(panel.applicationName)",
        "NSAboutPanelOptionApplicationVersion : nsStringFrom(panel.applicationVersion)",
        "NSAboutPanelOptionVersion : nsStringFrom(panel.version)", "NSAboutPanelOptionCredits :",
        "return UTTypeApplicationBundle", "!= NSModalResponseOK",
    ],
    "MacRunLoop.mm": [
        "NSProcessInfo.processInfo.systemUptime", "forMode:NSRunLoopCommonModes", "timer.tolerance = tolerance.count()",
        "dispatch_async(dispatch_get_main_queue(),", "dispatch_get_main_queue(), ^{",
    ],
    "MacScreenLink.mm": [
        "@selector(displayTick:)", "addToRunLoop:NSRunLoop.mainRunLoop forMode:NSRunLoopCommonModes",
        "CAFrameRateRangeMake(",
    ],
    "MacScreens.mm": [
        'deviceDescription[@"NSScreenNumber"]', "NSApplicationDidChangeScreenParametersNotification",
        "screen.maximumFramesPerSecond", "screen.backingScaleFactor",
    ],
    "MacSerialQueues.mm": [
        "DISPATCH_QUEUE_SERIAL", "QualityOfService::userInitiated ? QOS_CLASS_USER_INITIATED : QOS_CLASS_UTILITY",
    ],
    "MacStatusItems.mm": ["statusItemWithLength:length"],
    "MacUpdaterFramework.mm": [
        'stringByAppendingPathComponent:@"Sparkle.framework"', "NSBundle.mainBundle.privateFrameworksPath",
        'NSClassFromString(@"SPUStandardUpdaterController")',
        "initWithStartingUpdater:startingUpdater updaterDelegate:m_delegate userDriverDelegate:nil",
        "checkForUpdates:",
    ],
    "MacUserDefaults.mm": ["NSUserDefaults.standardUserDefaults dataForKey:", "NSUserDefaults.standardUserDefaults setObject:data"],
    "MacVideoLink.mm": [
        "CVDisplayLinkCreateWithCGDisplay(", "CVDisplayLinkSetOutputHandler(", "CVDisplayLinkStart(", "CVDisplayLinkStop(",
        "kCVReturnSuccess",
    ],
    "MacWindowInfoSource.mm": [
        "CGWindowListCopyWindowInfo(static_cast<CGWindowListOption>(options), static_cast<CGWindowID>(relativeTo))",
        ".layer = value(kCGWindowLayer)", ".ownerPID = value(kCGWindowOwnerPID)", ".alpha = value(kCGWindowAlpha)",
        ".number = value(kCGWindowNumber)", ".bounds = value(kCGWindowBounds)",
        "kCGWindowListOptionOnScreenOnly", "kCGWindowListOptionIncludingWindow", "kCGWindowListExcludeDesktopElements",
        "CGRectMakeWithDictionaryRepresentation(", "kCFNumberDoubleType", "kCFNumberSInt64Type",
    ],
    "MacWorkspace.mm": [
        "didActivateApplication: return NSWorkspaceDidActivateApplicationNotification",
        "activeSpaceDidChange: return NSWorkspaceActiveSpaceDidChangeNotification",
        "didTerminateApplication: return NSWorkspaceDidTerminateApplicationNotification",
        "NSWorkspace.sharedWorkspace.frontmostApplication", "runningApplicationWithProcessIdentifier:",
    ],
    "main.mm": ["PosixLibrary windowServerLibrary(CFRelease)"],
}

# What portable code has the adapters hand on.
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
    "src/tracking/FocusTrackerEvents.cpp": [
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
