#import "hosts/macos/overlay/MacOverlayWindow.h"

#include "hosts/macos/base/MacConversions.h"
#include "platform/WindowStyle.h"

#include <cstdlib>

// The numbers of platform/ToolkitWindow.h are those of AppKit.
static_assert(NSWindowStyleMaskBorderless == haloric::WindowStyle::kBorderless);
static_assert(NSBackingStoreBuffered == 2);
static_assert(NSWindowAnimationBehaviorNone == 2);
static_assert((NSWindowCollectionBehaviorMoveToActiveSpace | NSWindowCollectionBehaviorTransient |
               NSWindowCollectionBehaviorIgnoresCycle | NSWindowCollectionBehaviorFullScreenAuxiliary) == 330);

@implementation MacOverlayWindow {
    const haloric::ToolkitWindowDelegate* _overlayDelegate;
}

- (instancetype)initWithConfiguration:(const haloric::ToolkitWindowConfiguration&)configuration
                             delegate:(const haloric::ToolkitWindowDelegate*)delegate
{
    self = [super initWithContentRect:haloric::cgRectFrom(configuration.contentRect)
                            styleMask:static_cast<NSWindowStyleMask>(configuration.styleMask)
                              backing:static_cast<NSBackingStoreType>(configuration.backing)
                                defer:configuration.defersCreation];
    if (!self)
        return nil;
    _overlayDelegate = delegate;
    self.opaque = configuration.isOpaque;
    if (configuration.hasClearBackground)
        self.backgroundColor = NSColor.clearColor;
    self.hasShadow = configuration.hasShadow;
    self.ignoresMouseEvents = configuration.ignoresMouseEvents;
    self.releasedWhenClosed = configuration.isReleasedWhenClosed;
    self.hidesOnDeactivate = configuration.hidesOnDeactivate;
    self.animationBehavior = static_cast<NSWindowAnimationBehavior>(configuration.animationBehavior);
    self.excludedFromWindowsMenu = configuration.isExcludedFromWindowsMenu;
    self.collectionBehavior = static_cast<NSWindowCollectionBehavior>(configuration.collectionBehavior);
    self.level = configuration.level;
    self.movable = configuration.isMovable;
    self.canHide = NO; // "Hide Others" hides applications, and this one shows something of the others
    self.accessibilityElement = NO;
    return self;
}

- (instancetype)initWithContentRect:(NSRect)__unused contentRect
                          styleMask:(NSWindowStyleMask)__unused styleMask
                            backing:(NSBackingStoreType)__unused backing
                              defer:(BOOL)__unused defersCreation
{
    std::abort(); // an overlay without its configuration would take clicks and the focus
}

- (void)forgetOverlayDelegate
{
    _overlayDelegate = nullptr;
}

- (BOOL)canBecomeKeyWindow
{
    return _overlayDelegate && _overlayDelegate->canBecomeKey();
}

- (BOOL)canBecomeMainWindow
{
    return _overlayDelegate && _overlayDelegate->canBecomeMain();
}

- (NSRect)constrainFrameRect:(NSRect)frameRect toScreen:(NSScreen*)__unused screen
{
    if (!_overlayDelegate)
        return frameRect;
    return haloric::cgRectFrom(_overlayDelegate->constrainFrameRect(haloric::rectFrom(frameRect)));
}

@end
