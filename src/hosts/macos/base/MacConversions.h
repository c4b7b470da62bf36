// Values of src/platform and src/foundation as values of macOS, and back. Any thread.
//
// Coordinate spaces. Both sides use the same two, so nothing is ever flipped here: AppKit's screen coordinates
// are screen space (origin at the bottom left of the first screen, y upward), and what Accessibility, the window list
// and the window server report is global space (origin at the top left of the primary display, y downward). Portable
// code converts between them, by flippedVertically. All lengths are points on both sides: AppKit and Core Graphics
// apply a screen's backing scale themselves.
#pragma once

#include "foundation/Color.h"
#include "foundation/Geometry.h"
#include "foundation/Time.h"
#include "hosts/macos/base/CFOwned.h"
#include "platform/PlatformError.h"

#import <AppKit/AppKit.h>

#include <string>
#include <string_view>

namespace haloric {

Rect rectFrom(CGRect rect);
CGRect cgRectFrom(const Rect& rect);
CGPoint cgPointFrom(Point point);

// Not null: bytes that are not UTF-8 give an empty text.
CFOwned<CFStringRef> cfStringFrom(std::string_view text);
NSString* nsStringFrom(std::string_view text);

// Null gives an empty text.
std::string stringFrom(NSString* text);

// In the sRGB colour space, with the components as they are.
NSColor* nsColorFrom(const Color& color);
CFOwned<CGColorRef> cgColorFrom(const Color& color);

// The components in the sRGB colour space; those of the colour's own space when it has none there.
Color colorFrom(NSColor* color);

// Domain, code, description and recovery suggestion; the rest of an NSError has no place in PlatformError.
PlatformError platformErrorFrom(NSError* error);
NSError* nsErrorFrom(const PlatformError& error);

// From now on, for dispatch functions.
dispatch_time_t dispatchTimeAfter(Seconds delay);

} // namespace haloric
