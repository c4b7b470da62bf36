"""The macOS adapters ask the system for exactly what they should.

They cannot run on most machines that build them, so each constant, name and option that they hand to the system stands
here a second time, by the file that uses it. A file of the table holds each of its fragments; a constant of the system
that the adapters use and the table does not know is a slip as well, or a new one to be added here.
"""

import re

import project as common

FOLDER = "src/hosts/macos/"

TABLE = {
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

# Constants of the system by their names' shape.
CONSTANT = re.compile(r"\b(?:k(?:AX|CG|CF|CV)\w+|(?:RTLD|DISPATCH|QOS|NSEC)_\w+|NS\w+Notification\b(?!\*)"
                      r"|NS(?:Window|Event|BackingStore|Alert|Compositing|ModalResponse|AboutPanelOption)\w*?"
                      r"(?:Mask|Behavior|Buffered|Return|Operation|OK|Option)\w+"
                      r"|NSRunLoop\w+Modes?|SMAppServiceStatus\w+|UTType[A-Z]\w+)\b")
# In the adapters' own names, or of no consequence: how the form looks and which keys move it.
OWN = re.compile(r"kCF\b|NSWindowStyleMask$|NSEventMask$|NSEventModifier\w+|NSBackingStoreType|NSWindow\w+Behavior$"
                 r"|NSCompositingOperationSourceOver|DISPATCH_SOURCE_\w+|kCFNumber\w+")


def normalised(text):
    text = re.sub(r"//[^\n]*", "", text)
    return re.sub(r"\s+", " ", text)


def squeezed(text):
    return re.sub(r"\s", "", text)


def check(project, _):
    known = squeezed(" ".join(fragment for fragments in TABLE.values() for fragment in fragments))
    for path in project.files({".mm", ".h"}, FOLDER):
        text = normalised(project.read(path))
        for fragment in TABLE.get(path.name, []):
            if squeezed(fragment) not in squeezed(text):
                project.problem(path, f"does not hold “{fragment}”")
        for constant in sorted(set(CONSTANT.findall(text))):
            if constant not in known and not OWN.search(constant):
                project.problem(path, f"uses {constant}, which the table does not know")
    present = {path.name for path in project.files({".mm", ".h"}, FOLDER)}
    for name in TABLE.keys() - present if present else []:
        project.problem(FOLDER + name, "is in the table, but not there")


if __name__ == "__main__":
    common.run(check)
