// Images, fonts and texts with attributes.
#include "controls/Menus.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"

using substitute::raise;

@implementation NSImage {
    NSSize _size;
    BOOL _template;
    BOOL (^_draw)(NSRect);
}
+ (NSImage*)imageWithSize:(NSSize)size flipped:(BOOL)flipped drawingHandler:(BOOL (^)(NSRect))draw
{
    NSImage* made = [[NSImage alloc] init];
    made->_size = size;
    made->_draw = [(id)draw copy];
    return made;
}
+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)d
{
    return [[NSImage alloc] init];
}
- (void)setTemplate:(BOOL)v
{
    _template = v;
}
- (void)setSize:(NSSize)v
{
    _size = v;
}
- (NSSize)size
{
    return _size;
}
- (id)copyWithZone:(NSZone*)z
{
    NSImage* made = [[NSImage alloc] init];
    made->_size = _size;
    made->_draw = _draw;
    return made;
}
@end

@implementation NSFont
+ (NSFont*)systemFontOfSize:(CGFloat)s
{
    return [[self alloc] init];
}
+ (NSFont*)boldSystemFontOfSize:(CGFloat)s
{
    return [[self alloc] init];
}
+ (CGFloat)systemFontSize
{
    return 13;
}
+ (CGFloat)smallSystemFontSize
{
    return 11;
}
@end
@implementation NSBezierPath
+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)r xRadius:(CGFloat)x yRadius:(CGFloat)y
{
    return [[self alloc] init];
}
- (void)fill
{
}
@end
@implementation NSAttributedString
- (instancetype)initWithString:(NSString*)t attributes:(NSDictionary*)a
{
    if (!t)
        raise("NSInvalidArgumentException: nil");
    return [super init];
}
@end
extern "C" {
NSAboutPanelOptionKey const NSAboutPanelOptionApplicationName = @"ApplicationName",
                            NSAboutPanelOptionApplicationVersion = @"ApplicationVersion",
                            NSAboutPanelOptionCredits = @"Credits", NSAboutPanelOptionVersion = @"Version";
NSAttributedStringKey const NSFontAttributeName = @"NSFont", NSForegroundColorAttributeName = @"NSColor";
void NSRectFillUsingOperation(NSRect, NSCompositingOperation) {}
}
