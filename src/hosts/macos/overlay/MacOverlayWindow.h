// A window of the overlay: made from its configuration, and asking its delegate what AppKit asks it.
#pragma once

#include "platform/ToolkitWindow.h"

#import <AppKit/AppKit.h>

@interface MacOverlayWindow : NSWindow

// The one way to make an overlay; NSWindow's own initialiser stops the program.
- (instancetype)initWithConfiguration:(const haloric::ToolkitWindowConfiguration&)configuration
                             delegate:(const haloric::ToolkitWindowDelegate*)delegate;

// From now on nobody is asked: AppKit may keep a window longer than the program does.
- (void)forgetOverlayDelegate;

@end
