// What the stand-ins of Core Graphics share: colours, paths, and contexts that
// draw on a canvas of the project. Main thread.
#pragma once

#include "drawing/Canvas.h"
#include "foundation/Foundation.h"

#import <CoreGraphics/CoreGraphics.h>

#include <vector>

@interface RTPath : NSObject {
@public
    struct Part {
        int kind; // 0: a rectangle, 1: a rounded one
        CGRect rect;
        CGFloat w, h; // of the corners
    };
    std::vector<Part> parts;
}
@end

@interface RTCGColor : NSObject {
@public
    double c[4]; // red, green, blue, alpha, in sRGB
}
@end

namespace substitute {

// A context that draws on the canvas, which outlives it. The caller releases
// it.
CGContextRef makeContext(haloric::Canvas& canvas);

} // namespace substitute
