// How the parts of a form stand in stacks. Main thread.
#pragma once

#import <AppKit/AppKit.h>

namespace haloric {

// Makes `views` the stack's arranged views, in that order. Views that stay keep their place in the window, and with it
// the keyboard's focus or a drag that is under way. In a vertical stack each is as wide as the stack's inside.
void arrange(NSStackView* stack, NSArray<NSView*>* views);

} // namespace haloric
