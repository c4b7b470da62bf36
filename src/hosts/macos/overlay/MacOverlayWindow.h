// An NSWindow of the overlay. Its delegate answers what AppKit asks: whether it takes the focus, and its frame.
#pragma once

#include "platform/ToolkitWindow.h"

#import <AppKit/AppKit.h>

@interface MacOverlayWindow : NSWindow

// The only way to make an overlay; NSWindow's own initialiser aborts.
- (instancetype)initWithConfiguration:(const haloric::ToolkitWindowConfiguration&)configuration
                             delegate:(const haloric::ToolkitWindowDelegate*)delegate;

// Stops calls to the delegate: AppKit may keep a window longer than the program does.
- (void)forgetOverlayDelegate;

@end
