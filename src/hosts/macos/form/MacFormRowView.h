// One row of a form: a label and its control. Each kind of control has a subclass; see MacFormRows.h. Main thread.
#pragma once

#include "platform/FormModel.h"

#import <AppKit/AppKit.h>

@interface MacFormRowView : NSView

// A row for a control of that kind, which it shows. `group` is the title of its section, or empty.
+ (MacFormRowView*)rowForControl:(const haloric::FormControl&)control inGroup:(NSString*)group;

// Shows the control in place of the one before. NO, and nothing done, for a control of another kind.
- (BOOL)showControl:(const haloric::FormControl&)control;

// What takes the keyboard.
@property(nonatomic, readonly) NSView* control;

// For subclasses: what VoiceOver says of a control with that label. Several sections have an "Enabled".
- (NSString*)spokenLabel:(NSString*)label;

// For subclasses: a label on one line. When it is too long it is cut off, and neither widens the window nor pushes the
// control out of it.
+ (NSTextField*)label;

// For subclasses: the row's parts from left to right, with the last one at the right edge.
- (void)layOut:(NSArray<NSView*>*)leading trailing:(NSView*)trailing;

@end
