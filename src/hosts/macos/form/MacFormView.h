// A form that scrolls when it is higher than its window. Main thread.
#pragma once

#include "platform/FormModel.h"

#import <AppKit/AppKit.h>

@interface MacFormView : NSScrollView

// Shows the form in place of the one before: rows and sections of the same id stay, and only take new values.
- (void)showForm:(const haloric::FormModel&)form;

@end
