// The buttons below a form, side by side, on as many lines as their titles need. Main thread.
#pragma once

#import <AppKit/AppKit.h>

@interface MacFormButtons : NSStackView

// Shows `buttons`, in their order, on lines of at most `width` points; a wider one has a line of its own.
- (void)showButtons:(NSArray<NSView*>*)buttons within:(CGFloat)width;

@end
