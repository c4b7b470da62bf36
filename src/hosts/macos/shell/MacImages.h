// Pictures of the seam as AppKit's. Main thread.
#pragma once

#include "platform/Image.h"

#import <AppKit/AppKit.h>

namespace haloric {

// Null for an empty picture, and for one that the system does not have. A drawn picture is drawn anew for each scale
// and appearance.
NSImage* nsImageFrom(const Image& image);

} // namespace haloric
