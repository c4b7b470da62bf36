// Views and layout constraints.
#include "windows/Windows.h"

using substitute::raise;

@implementation NSResponder
@end
@interface RTAnchor : NSObject
@end
@implementation NSLayoutConstraint {
    BOOL _active;
}
+ (void)activateConstraints:(NSArray*)all
{
    for (NSLayoutConstraint* one in all)
        one.active = YES;
}
- (void)setActive:(BOOL)v
{
    _active = v;
}
- (BOOL)isActive
{
    return _active;
}
@end
@implementation RTAnchor
- (NSLayoutConstraint*)constraintEqualToAnchor:(id)other
{
    if (!other)
        raise("a constraint to nil");
    return [[NSLayoutConstraint alloc] init];
}
- (NSLayoutConstraint*)constraintEqualToAnchor:(id)other constant:(CGFloat)c
{
    if (!other)
        raise("a constraint to nil");
    return [[NSLayoutConstraint alloc] init];
}
- (NSLayoutConstraint*)constraintGreaterThanOrEqualToAnchor:(id)other constant:(CGFloat)c
{
    return [self constraintEqualToAnchor:other constant:c];
}
- (NSLayoutConstraint*)constraintLessThanOrEqualToAnchor:(id)other constant:(CGFloat)c
{
    return [self constraintEqualToAnchor:other constant:c];
}
- (NSLayoutConstraint*)constraintEqualToConstant:(CGFloat)c
{
    return [[NSLayoutConstraint alloc] init];
}
@end
@implementation NSView {
@public
    NSRect _frame;
    BOOL _needs, _hidden;
    NSWindow* __weak _window;
    NSView* __weak _super;
    NSMutableArray<NSView*>* _subviews;
    NSString *_tip, *_label;
}
- (instancetype)initWithFrame:(NSRect)frame
{
    if ((self = [super init]))
        _frame = frame;
    return self;
}
- (NSRect)frame
{
    return _frame;
}
- (NSRect)bounds
{
    return NSMakeRect(0, 0, _frame.size.width, _frame.size.height);
}
- (void)setFrameSize:(NSSize)size
{
    _frame.size = size;
}
- (void)setFrame:(NSRect)frame
{
    _frame.origin = frame.origin;
    if (frame.size.width != _frame.size.width || frame.size.height != _frame.size.height)
        [self setFrameSize:frame.size];
}
- (void)setNeedsDisplay:(BOOL)needs
{
    if (needs)
        [self setNeedsDisplayInRect:self.bounds];
}
- (void)setNeedsDisplayInRect:(NSRect)rect
{
    _needs = YES;
    [_window _scheduleDisplay];
}
- (BOOL)needsDisplay
{
    return _needs;
}
- (void)viewDidChangeBackingProperties
{
}
- (void)drawRect:(NSRect)rect
{
}
- (BOOL)isOpaque
{
    return NO;
}
- (BOOL)isFlipped
{
    return NO;
}
- (NSView*)superview
{
    return _super;
}
- (void)addSubview:(NSView*)view
{
    if (!_subviews)
        _subviews = [NSMutableArray array];
    if (![_subviews containsObject:view])
        [_subviews addObject:view];
    view->_super = self;
}
- (NSArray*)subviews
{
    return _subviews ? [_subviews copy] : @[];
}
- (void)removeFromSuperview
{
    NSView* parent = _super;
    _super = nil;
    if (parent) {
        [parent _lost:self];
        [parent->_subviews removeObjectIdenticalTo:self];
    }
}
- (void)_lost:(NSView*)view
{
}
- (void)_setWindow:(NSWindow*)window
{
    _window = window;
}
- (BOOL)_takeNeedsDisplay
{
    const BOOL needs = _needs;
    _needs = NO;
    return needs;
}
- (NSSize)fittingSize
{
    return NSMakeSize(100, 20);
}
- (void)setTranslatesAutoresizingMaskIntoConstraints:(BOOL)v
{
}
- (void)setContentCompressionResistancePriority:(NSLayoutPriority)p forOrientation:(NSLayoutConstraintOrientation)o
{
}
- (void)layout
{
}
- (void)setHidden:(BOOL)v
{
    _hidden = v;
}
- (BOOL)isHidden
{
    return _hidden;
}
- (void)setToolTip:(NSString*)v
{
    _tip = [v copy];
}
- (NSString*)toolTip
{
    return _tip;
}
- (void)setAccessibilityLabel:(NSString*)v
{
    _label = [v copy];
}
- (NSString*)accessibilityLabel
{
    return _label;
}
- (void)setAccessibilityElement:(BOOL)v
{
}
- (BOOL)accessibilityPerformIncrement
{
    return NO;
}
- (BOOL)accessibilityPerformDecrement
{
    return NO;
}
- (NSLayoutXAxisAnchor*)leadingAnchor
{
    return (id)[[RTAnchor alloc] init];
}
- (NSLayoutXAxisAnchor*)trailingAnchor
{
    return (id)[[RTAnchor alloc] init];
}
- (NSLayoutYAxisAnchor*)topAnchor
{
    return (id)[[RTAnchor alloc] init];
}
- (NSLayoutYAxisAnchor*)bottomAnchor
{
    return (id)[[RTAnchor alloc] init];
}
- (NSLayoutDimension*)widthAnchor
{
    return (id)[[RTAnchor alloc] init];
}
- (NSLayoutDimension*)heightAnchor
{
    return (id)[[RTAnchor alloc] init];
}
@end
