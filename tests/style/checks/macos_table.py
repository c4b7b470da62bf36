"""What the macOS adapters hand to the system, a second time.

They cannot run on most machines that build them. So every constant, name and option stands here as well, as a fragment
of the source that uses it; white space and comments do not count. See macos.py.
"""

# By the file in src/hosts/macos/; what the user looks at is in macos_interface_table.py.
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
    "MacApplication.mm": [
        "NSApplication.sharedApplication", "activateIgnoringOtherApps:YES", "terminate:nil",
        "NSProcessInfo.processInfo.processIdentifier", "contentLayoutRect.size.height",
        "NSApplicationActivationPolicyAccessory == static_cast<NSInteger>(ActivationPolicy::accessory)",
        "[m_application setActivationPolicy:static_cast<NSApplicationActivationPolicy>(policy)]",
        "m_delegate.receiver = delegate; m_application.delegate = m_delegate;", "[m_application run]",
        "- (void)applicationDidFinishLaunching:(NSNotification*)__unused notification "
        "{ if (self.receiver) self.receiver->applicationDidFinishLaunching(); }",
        "- (BOOL)applicationShouldHandleReopen:(NSApplication*)__unused sender "
        "hasVisibleWindows:(BOOL)hasVisibleWindows "
        "{ return !self.receiver || self.receiver->applicationShouldHandleReopen(hasVisibleWindows); }",
        "- (void)applicationWillTerminate:(NSNotification*)__unused notification "
        "{ if (self.receiver) self.receiver->applicationWillTerminate(); }",
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
        "[color colorUsingColorSpace:NSColorSpace.sRGBColorSpace]", "NSColor* source = converted ? converted : color;",
        "{source.redComponent, source.greenComponent, source.blueComponent, source.alphaComponent}",
        "kCFStringEncodingUTF8", "kCFAllocatorDefault",
        "dispatch_time(DISPATCH_TIME_NOW, ", "NSEC_PER_SEC",
        "NSLocalizedDescriptionKey", "NSLocalizedRecoverySuggestionErrorKey",
    ],
    "MacDataAddSource.mm": [
        "dispatch_source_create(DISPATCH_SOURCE_TYPE_DATA_ADD, 0, 0, dispatch_get_main_queue())",
    ],
    "MacDisplayLinks.mm": ["@available(macOS 14.0, *)"],
    "MacHotkeys.mm": [
        "InstallEventHandler(GetApplicationEventTarget(), &takeEvent, 1, &spec, context, &installed)",
        "RegisterEventHotKey(hotkey.keyCode, hotkey.modifiers, identity, GetApplicationEventTarget(), options, &registered)",
        "identity{hotkey.signature, hotkey.number}", "if (!context) return noErr;",
        "RemoveEventHandler(reinterpret_cast<::EventHandlerRef>(handler))",
        "UnregisterEventHotKey(reinterpret_cast<EventHotKeyRef>(hotkey))",
    ],
    "MacInputMonitors.mm": [
        "maskOf(EventType::leftMouseDown) | maskOf(EventType::leftMouseUp) | maskOf(EventType::rightMouseDown) | "
        "maskOf(EventType::rightMouseUp) | maskOf(EventType::otherMouseDown) | maskOf(EventType::otherMouseUp)",
        "NSEventMaskLeftMouseDown | NSEventMaskLeftMouseUp | NSEventMaskRightMouseDown | NSEventMaskRightMouseUp | "
        "NSEventMaskOtherMouseDown | NSEventMaskOtherMouseUp", "== 0x600001E",
        "addGlobalMonitorForEventsMatchingMask:eventMask(mask)", "addLocalMonitorForEventsMatchingMask:eventMask(mask)",
        "return event;", "NSEvent.pressedMouseButtons",
        "kCGSessionEventTap", "kCGHeadInsertEventTap", "kCGEventTapOptionListenOnly", "kCGEventTapDisabledByTimeout",
        "kCGEventTapDisabledByUserInput", "CGEventMaskBit(kCGEventKeyDown) | CGEventMaskBit(kCGEventLeftMouseUp)) == 1028",
        "static_cast<CGEventTapLocation>(description.location)", "static_cast<CGEventTapPlacement>(description.placement)",
        "static_cast<CGEventTapOptions>(description.options)",
        "CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode)", "type == kCGEventKeyDown",
        "CFMachPortCreateRunLoopSource(kCFAllocatorDefault, m_port.get(), 0)",
        "CFRunLoopAddSource(CFRunLoopGetMain(), source.get(), kCFRunLoopCommonModes)",
        "CGEventTapEnable(m_port.get(), true)",
    ],
    "MacLog.mm": ['NSLog(@"%@", nsStringFrom(text))'],
    "MacLoginItemService.mm": [
        "SMAppServiceStatusNotRegistered", "SMAppServiceStatusEnabled", "SMAppServiceStatusRequiresApproval",
        "SMAppServiceStatusNotFound", "[SMAppService.mainAppService registerAndReturnError:",
        "[SMAppService.mainAppService unregisterAndReturnError:",
        "return static_cast<LoginItemStatus>(SMAppService.mainAppService.status);",
    ],
    "MacNotifications.mm": ["queue:NSOperationQueue.mainQueue"],
    "MacOverlayWindow.mm": [
        "NSWindowStyleMaskBorderless == 0", "NSBackingStoreBuffered == 2", "NSWindowAnimationBehaviorNone == 2",
        "(NSWindowCollectionBehaviorMoveToActiveSpace | NSWindowCollectionBehaviorTransient | "
        "NSWindowCollectionBehaviorIgnoresCycle | NSWindowCollectionBehaviorFullScreenAuxiliary) == 330",
        "self.level = configuration.level",
        "self.collectionBehavior = static_cast<NSWindowCollectionBehavior>(configuration.collectionBehavior)",
        "self.animationBehavior = static_cast<NSWindowAnimationBehavior>(configuration.animationBehavior)",
        "self.opaque = configuration.isOpaque",
        "if (configuration.hasClearBackground) self.backgroundColor = NSColor.clearColor",
        "self.hasShadow = configuration.hasShadow", "self.ignoresMouseEvents = configuration.ignoresMouseEvents",
        "self.releasedWhenClosed = configuration.isReleasedWhenClosed",
        "self.hidesOnDeactivate = configuration.hidesOnDeactivate",
        "self.excludedFromWindowsMenu = configuration.isExcludedFromWindowsMenu",
        "self.movable = configuration.isMovable", "defer:(BOOL)__unused defersCreation { std::abort(); }",
        "- (BOOL)canBecomeKeyWindow { return _overlayDelegate && _overlayDelegate->canBecomeKey(); }",
        "- (BOOL)canBecomeMainWindow { return _overlayDelegate && _overlayDelegate->canBecomeMain(); }",
    ],
    "MacProcesses.mm": [
        "task.executableURL = [NSURL fileURLWithPath:nsStringFrom(executable)]",
        "for (const std::string& argument : arguments) [texts addObject:nsStringFrom(argument)]",
        "task.arguments = texts", "return [task launchAndReturnError:nil]",
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
