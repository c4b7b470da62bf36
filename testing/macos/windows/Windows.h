// What the stand-ins of windows, views and controls share. Main thread.
#pragma once

#include "foundation/Foundation.h"
#include "platform/Application.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <optional>

@interface NSWindow (Substitute)
- (void)_scheduleDisplay;
- (void)_display;
- (void)_primaryRose:(CGFloat)points; // its top is higher by that: the window keeps its place in global space
@end

@interface NSView (Substitute)
- (void)_lost:(NSView*)view;
- (void)_setWindow:(NSWindow*)window;
- (BOOL)_takeNeedsDisplay;
@end

namespace substitute {

NSMutableArray* windows(); // all that exist

extern long drawn; // how often a view was asked to draw
extern NSWindow* keyWindow;

extern std::function<void(NSAlert*)> whileAlertRuns; // while an alert is shown; may be empty
extern NSModalResponse alertResponse;                // of the next alerts

// The stand-in of that window of the backing, made if the program did not make it; nil for none.
NSWindow* windowBehind(const std::optional<haloric::OwnWindow>& window);

} // namespace substitute
