// Pictures of platform/Image.h as NSImage. Main thread.
#pragma once

#include "platform/Image.h"

#import <AppKit/AppKit.h>

namespace haloric {

// Null for an empty picture, and for a symbol that macOS does not have. A drawn picture is drawn again for each scale
// and appearance.
NSImage* nsImageFrom(const Image& image);

} // namespace haloric
