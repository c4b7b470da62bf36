// Colours and colour spaces.
#include "foundation/Balance.h"
#include "graphics/Graphics.h"

#import <AppKit/AppKit.h>

#include <algorithm>

@implementation RTCGColor
@end
@implementation NSColorSpace
+ (NSColorSpace*)sRGBColorSpace
{
    static NSColorSpace* const one = substitute::permanent([] { return [[NSColorSpace alloc] init]; });
    return one;
}
@end
@implementation NSColor {
    double _c[4];
    RTCGColor* _cg;
}
+ (NSColor*)colorWithSRGBRed:(CGFloat)r green:(CGFloat)g blue:(CGFloat)b alpha:(CGFloat)a
{
    NSColor* made = [[NSColor alloc] init];
    made->_c[0] = r;
    made->_c[1] = g;
    made->_c[2] = b;
    made->_c[3] = a;
    return made;
}
+ (NSColor*)labelColor
{
    return [self colorWithSRGBRed:0 green:0 blue:0 alpha:0.85];
}
+ (NSColor*)secondaryLabelColor
{
    return [self labelColor];
}
+ (NSColor*)disabledControlTextColor
{
    return [self labelColor];
}
+ (NSColor*)separatorColor
{
    return [self labelColor];
}
- (NSColor*)colorWithAlphaComponent:(CGFloat)a
{
    return [NSColor colorWithSRGBRed:_c[0] green:_c[1] blue:_c[2] alpha:a];
}
- (void)setFill
{
}
+ (NSColor*)clearColor
{
    return [self colorWithSRGBRed:0 green:0 blue:0 alpha:0];
}
- (NSColor*)colorUsingColorSpace:(NSColorSpace*)space
{
    return self;
}
- (CGFloat)redComponent
{
    return _c[0];
}
- (CGFloat)greenComponent
{
    return _c[1];
}
- (CGFloat)blueComponent
{
    return _c[2];
}
- (CGFloat)alphaComponent
{
    return _c[3];
}
- (CGColorRef)CGColor
{
    if (!_cg) {
        _cg = [[RTCGColor alloc] init];
        std::copy(_c, _c + 4, _cg->c);
    }
    return (__bridge CGColorRef)_cg;
} // lent by the colour, as on a Mac
@end
