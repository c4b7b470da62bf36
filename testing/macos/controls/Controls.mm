// Controls.
#include "controls/Menus.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"

#include <algorithm>

using substitute::raise;

@implementation NSCell
@end
@implementation NSActionCell
@end
@implementation NSSliderCell
- (NSView*)controlView
{
    return nil;
}
@end
@implementation NSControl {
    SEL _action;
    id __weak _target;
    BOOL _enabled;
    NSString* _string;
    double _double;
    NSInteger _st;
}

// -[NSControl isEnabled]: controls are enabled by default.
- (instancetype)initWithFrame:(NSRect)frame
{
    if ((self = [super initWithFrame:frame]))
        _enabled = YES;
    return self;
}

- (SEL)action
{
    return _action;
}

- (void)setAction:(SEL)v
{
    _action = v;
}

- (id)target
{
    return _target;
}

- (void)setTarget:(id)v
{
    _target = v;
}
- (BOOL)isEnabled
{
    return _enabled;
}

- (void)setEnabled:(BOOL)v
{
    _enabled = v;
}

- (NSString*)stringValue
{
    return _string;
}
- (void)setStringValue:(NSString*)v
{
    if (!v)
        raise("NSInternalInconsistencyException: setStringValue: nil");
    _string = [v copy];
}
- (double)doubleValue
{
    return _double;
}
- (void)setDoubleValue:(double)v
{
    _double = v;
}
- (void)setContinuous:(BOOL)v
{
}
- (void)setFont:(NSFont*)v
{
}
- (void)setLineBreakMode:(NSLineBreakMode)v
{
}
- (BOOL)sendAction:(SEL)a to:(id)t
{
    if (!a || !t)
        return NO;
    [t performSelector:a withObject:self];
    return YES;
}
- (NSInteger)state
{
    return _st;
}
- (void)setState:(NSInteger)v
{
    _st = v;
}
@end
@implementation NSTextField
+ (instancetype)labelWithString:(NSString*)t
{
    NSTextField* made = [[self alloc] initWithFrame:NSZeroRect];
    made.stringValue = t;
    return made;
}
+ (instancetype)wrappingLabelWithString:(NSString*)t
{
    return [self labelWithString:t];
}
- (void)setTextColor:(NSColor*)c
{
}
- (void)setSelectable:(BOOL)v
{
}
@end
@implementation NSSwitch
@end
@implementation NSSlider {
    double _min, _max;
}
- (void)setMinValue:(double)v
{
    _min = v;
}
- (void)setMaxValue:(double)v
{
    _max = v;
}
- (void)setDoubleValue:(double)v
{
    [super setDoubleValue:std::min(std::max(v, _min), std::max(_min, _max))];
}
- (void)keyDown:(NSEvent*)event
{
}
@end
@implementation NSButton {
    NSImage* _image;
    NSString* _title;
}
+ (instancetype)buttonWithTitle:(NSString*)t target:(id)target action:(SEL)a
{
    NSButton* made = [[self alloc] initWithFrame:NSZeroRect];
    made.title = t;
    made.target = target;
    made.action = a;
    return made;
}

- (NSImage*)image
{
    return _image;
}

- (void)setImage:(NSImage*)v
{
    _image = v;
}

- (NSString*)title
{
    return _title;
}

- (void)setTitle:(NSString*)v
{
    _title = v;
}
- (void)setBordered:(BOOL)v
{
}
- (void)setImagePosition:(NSCellImagePosition)v
{
}
@end
@implementation NSStatusBarButton
@end
@implementation NSPopUpButton {
    NSMenu* _own;
    NSInteger _selected;
    BOOL _pullsDown;
}
- (BOOL)pullsDown
{
    return _pullsDown;
}
- (instancetype)initWithFrame:(NSRect)f pullsDown:(BOOL)p
{
    if ((self = [super initWithFrame:f])) {
        _pullsDown = p;
        _own = [[NSMenu alloc] init];
        _selected = -1;
    }
    return self;
}
- (NSMenu*)menu
{
    return _own;
}
- (NSArray*)itemTitles
{
    NSMutableArray* all = [NSMutableArray array];
    for (NSMenuItem* i in _own.itemArray)
        [all addObject:i.title];
    return all;
}
- (void)removeAllItems
{
    [_own removeAllItems];
}
- (void)addItemsWithTitles:(NSArray*)titles
{
    for (NSString* t in titles)
        [_own addItemWithTitle:t action:nil keyEquivalent:@""];
}
- (void)selectItemAtIndex:(NSInteger)i
{
    if (i >= _own.numberOfItems)
        raise("NSRangeException: selectItemAtIndex:");
    _selected = i;
}
- (NSInteger)indexOfSelectedItem
{
    return _selected;
}
- (void)synchronizeTitleAndSelectedItem
{
}
@end
@implementation NSImageView
- (void)setImage:(NSImage*)v
{
}
@end
@implementation NSColorWell {
    NSColor* _color;
}
- (NSColor*)color
{
    return _color ? _color : NSColor.clearColor;
}

- (void)setColor:(NSColor*)v
{
    _color = v;
}
- (void)setSupportsAlpha:(BOOL)v
{
}
- (void)deactivate
{
}
@end
@implementation NSPanel
@end
@implementation NSColorPanel
+ (NSColorPanel*)sharedColorPanel
{
    return nil;
}
+ (BOOL)sharedColorPanelExists
{
    return NO;
}
- (void)setShowsAlpha:(BOOL)v
{
}
@end
