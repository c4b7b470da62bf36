// Stack views and scroll views.
#include "controls/Menus.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"

using substitute::raise;

@implementation NSStackView {
    NSMutableArray<NSView*>* _arranged;
    NSEdgeInsets _edgeInsets;
    NSInteger _orientation;
}
- (instancetype)initWithFrame:(NSRect)f
{
    if ((self = [super initWithFrame:f]))
        _arranged = [NSMutableArray array];
    return self;
}
- (NSArray*)arrangedSubviews
{
    return [_arranged copy];
}
- (void)addView:(NSView*)v inGravity:(NSStackViewGravity)g
{
    if (!v)
        raise("nil view");
    [_arranged addObject:v];
    [self addSubview:v];
}
- (NSArray*)views
{
    return [_arranged copy];
}
- (void)setHuggingPriority:(NSLayoutPriority)p forOrientation:(NSLayoutConstraintOrientation)o
{
}
- (void)insertArrangedSubview:(NSView*)v atIndex:(NSInteger)i
{
    [_arranged insertObject:v atIndex:static_cast<NSUInteger>(i)];
    [self addSubview:v];
}
- (void)removeArrangedSubview:(NSView*)v
{
    [_arranged removeObjectIdenticalTo:v];
}
- (void)_lost:(NSView*)v
{
    [_arranged removeObjectIdenticalTo:v];
}
- (NSEdgeInsets)edgeInsets
{
    return _edgeInsets;
}
- (void)setEdgeInsets:(NSEdgeInsets)v
{
    _edgeInsets = v;
}
- (NSUserInterfaceLayoutOrientation)orientation
{
    return static_cast<NSUserInterfaceLayoutOrientation>(_orientation);
}
- (void)setOrientation:(NSUserInterfaceLayoutOrientation)v
{
    _orientation = v;
}
- (void)setAlignment:(NSLayoutAttribute)v
{
}
- (void)setSpacing:(CGFloat)v
{
}
@end
@implementation NSScrollView {
    NSView* _clip;
    NSView* _document;
}
- (NSView*)contentView
{
    if (!_clip)
        _clip = [[NSView alloc] initWithFrame:NSZeroRect];
    return _clip;
}
- (void)setDocumentView:(NSView*)v
{
    _document = v;
    [self addSubview:self.contentView];
    [self.contentView addSubview:v];
}
- (void)setHasVerticalScroller:(BOOL)v
{
}
- (void)setAutohidesScrollers:(BOOL)v
{
}
- (void)setDrawsBackground:(BOOL)v
{
}
@end
@implementation NSScroller
+ (CGFloat)scrollerWidthForControlSize:(NSControlSize)c scrollerStyle:(NSScrollerStyle)s
{
    return 15;
}
@end
