// A window of the overlay: made from its configuration, and asking its delegate what AppKit asks it.
#pragma once

#include "platform/ToolkitWindow.h"

#import <AppKit/AppKit.h>

@interface MacOverlayWindow : NSWindow

- (instancetype)initWithConfiguration:(const haloric::ToolkitWindowConfiguration&)configuration
                             delegate:(const haloric::ToolkitWindowDelegate*)delegate NS_DESIGNATED_INITIALIZER;
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)styleMask
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defersCreation NS_UNAVAILABLE;

// From now on nobody is asked: AppKit may keep a window longer than the program does.
- (void)forgetOverlayDelegate;

@end
