#include "windows/Windows.h"

#include "drawing/raster/Picture.h"
#include "drawing/raster/RasterCanvas.h"
#include "graphics/Graphics.h"
#include "loop/MainLoop.h"
#include "world/Backing.h"
#include "world/World.h"

#include <algorithm>
#include <vector>

#include <unistd.h>

using substitute::raise;
using substitute::World;

extern NSGraphicsContext* g_current;

static std::vector<NSWindow * __unsafe_unretained>& allWindows()
{
    static auto* all = new std::vector<NSWindow * __unsafe_unretained>;
    return *all;
}
NSMutableArray* substitute::windows()
{
    NSMutableArray* all = [NSMutableArray array];
    for (NSWindow* one : allWindows())
        [all addObject:one];
    return all;
}
NSNotificationName const NSWindowWillCloseNotification = @"NSWindowWillCloseNotification";
extern "C" const NSRect NSZeroRect;
const NSRect NSZeroRect = {{0, 0}, {0, 0}};
namespace substitute {
long drawn;
NSWindow* keyWindow;
}

static haloric::Rect globalFrom(NSRect rect)
{
    return substitute::flippedByAppKit({rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
}

@interface NSWindow (Drawing)
- (void)_drawOn:(haloric::Canvas&)canvas;
@end

@implementation NSWindow {
    NSRect _rect;
    unsigned _number;
    BOOL _shown, _scheduled, _outdated, _opaque, _shadow, _ignores, _released, _hides, _excluded, _movable;
    NSView* _content;
    NSWindowCollectionBehavior _behavior;
    NSWindowLevel _level;
    NSColor* _background;
    NSString* _title;
    NSWindowAnimationBehavior _animation;
    NSWindowStyleMask _styleMask;
    BOOL _miniaturized, _cannotHide, _noElement;
    std::unique_ptr<substitute::ServerWindow> _behind; // with a backing
}
- (instancetype)initWithContentRect:(NSRect)rect
                          styleMask:(NSWindowStyleMask)mask
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defer
{
    if (!(self = [super init]))
        return nil;
    allWindows().push_back(self);
    _rect = rect;
    _styleMask = mask;
    _opaque = _shadow = _released = _movable = YES;
    _outdated = YES; // nothing has been drawn yet
    if (const substitute::Backing* backing = substitute::backing()) {
        NSWindow* __unsafe_unretained window = self; // it owns what is behind it
        _behind = backing->windows.make(globalFrom(rect), mask & NSWindowStyleMaskTitled,
                                        {.draw = [window](haloric::Canvas& canvas) { [window _drawOn:canvas]; },
                                         .closedByUser = [window] { [window close]; }});
    } else if (!defer) { // a window device at once, off screen
        const std::lock_guard guard(World::the().lock);
        _number = World::the().open(getpid(), rect);
        World::the().find(_number)->onScreen = false;
        World::the().find(_number)->layer = 3; // never an application's ordinary window
    }
    return self;
}
- (void)dealloc
{
    std::erase(allWindows(), self);
    if (_number) {
        const std::lock_guard guard(World::the().lock);
        World::the().close(_number);
    }
}
- (CGRect)_global
{
    return CGRectMake(_rect.origin.x, World::the().height - NSMaxY(_rect), _rect.size.width, _rect.size.height);
}
- (NSRect)frame
{
    if (!_behind)
        return _rect;
    const haloric::Rect frame = substitute::flippedByAppKit(_behind->frame());
    return NSMakeRect(frame.x, frame.y, frame.width, frame.height);
}
- (NSRect)_contentBounds
{
    const NSSize size = self.frame.size;
    return NSMakeRect(0, 0, size.width, size.height - (_behind ? _behind->titleBarHeight() : 0));
}
- (NSRect)constrainFrameRect:(NSRect)frame toScreen:(NSScreen*)screen
{
    return frame;
}
- (void)setFrame:(NSRect)frame display:(BOOL)display
{
    frame = [self constrainFrameRect:frame toScreen:nil];
    _rect = frame;
    if (_behind)
        _behind->setFrame(globalFrom(frame));
    _content.frame = [self _contentBounds];
    if (display && _content.needsDisplay)
        [self _scheduleDisplay];
    if (_number)
        World::the().setFrame(_number, [self _global]);
}
- (void)setFrameOrigin:(NSPoint)origin
{
    _rect.origin = origin;
    if (_behind) {
        const NSSize size = self.frame.size;
        _behind->setFrame(globalFrom(NSMakeRect(origin.x, origin.y, size.width, size.height)));
    }
    if (_number)
        World::the().setFrame(_number, [self _global]);
}
- (void)_primaryRose:(CGFloat)points
{
    _rect.origin.y += points;
}
- (BOOL)isVisible
{
    return _behind ? _behind->isVisible() : _shown;
}
- (void)orderFrontRegardless
{
    _shown = YES;
    if (_behind)
        _behind->orderFront(_behavior & NSWindowCollectionBehaviorMoveToActiveSpace
                                ? substitute::ServerWindow::Space::active
                                : substitute::ServerWindow::Space::wherePlaced);
    if (_number) {
        const std::lock_guard guard(World::the().lock);
        World::the().find(_number)->onScreen = true;
        World::the().toFront(_number);
    }
    if (_content.needsDisplay)
        [self _scheduleDisplay];
}
- (void)orderOut:(id)sender
{
    _shown = NO;
    if (_behind)
        _behind->orderOut();
    if (_number) {
        const std::lock_guard guard(World::the().lock);
        World::the().find(_number)->onScreen = false;
    }
}
- (NSInteger)windowNumber
{
    if (_behind)
        return _behind->number() > 0 ? static_cast<NSInteger>(_behind->number()) : -1;
    return _number ? static_cast<NSInteger>(_number) : -1;
}
- (NSView*)contentView
{
    return _content;
}
- (void)setContentView:(NSView*)view
{
    _content = view;
    [view _setWindow:self];
    view.frame = [self _contentBounds];
    [view setNeedsDisplay:YES];
}
- (void)_scheduleDisplay
{
    if (_behind && !_outdated)
        _behind->contentsAreOutdated();
    _outdated = YES;
    if (_scheduled || !self.visible) // a window that is not on screen displays when it is ordered to the front
        return;
    _scheduled = YES;
    NSWindow* __weak weak = self;
    substitute::onMain([weak] { [weak _display]; });
}
- (void)_display
{
    _scheduled = NO;
    if (!self.visible || !_content || ![_content _takeNeedsDisplay])
        return;
    _outdated = NO;
    if (_behind) {
        _behind->drawContents();
        return;
    }
    const double scale = 2;
    const haloric::Size size{_rect.size.width, _rect.size.height};
    const haloric::PixelRect pixels = haloric::DeviceSpace(scale, size).pixels();
    haloric::Picture picture(pixels.width, pixels.height);
    haloric::RasterResources resources;
    haloric::RasterCanvas canvas(resources, picture.buffer(), {scale, size, 0, 0},
                                 haloric::RasterContents::transparent);
    [self _drawOn:canvas];
    ++substitute::drawn;
}
- (void)_drawOn:(haloric::Canvas&)canvas
{
    if (!_content)
        return;
    CGContextRef context = substitute::makeContext(canvas);
    @autoreleasepool {
        g_current = [NSGraphicsContext graphicsContextWithCGContext:context flipped:_content.isFlipped];
        [_content drawRect:_content.bounds];
        g_current = nil;
    }
    CFRelease(context);
}
- (void)setTitle:(NSString*)v
{
    _title = [v copy];
    if (_behind)
        _behind->setTitle([v _utf8]);
}
- (NSString*)title
{
    return _title;
}
- (void)setAutorecalculatesKeyViewLoop:(BOOL)v
{
}
- (void)center
{
    if (_behind)
        _behind->center();
}
// NSWindow makeKeyAndOrderFront: while the application is inactive, its windows stay behind those of the active one.
- (void)makeKeyAndOrderFront:(id)sender
{
    if (_behind && self.canBecomeKeyWindow) {
        _behind->makeKeyAndOrderFront();
        if (_content.needsDisplay)
            [self _scheduleDisplay];
        return;
    }
    if (NSApp.active || World::the().frontmost == 0)
        [self orderFrontRegardless];
    else if (!_shown) {
        _shown = YES;
        const std::lock_guard guard(World::the().lock);
        World::the().find(_number)->onScreen = true;
        World::the().toBack(_number);
    }
    if (self.canBecomeKeyWindow)
        substitute::keyWindow = self;
}
- (NSWindowStyleMask)styleMask
{
    return _styleMask;
}
- (NSWindowLevel)level
{
    return _level;
}
- (BOOL)isMiniaturized
{
    return _miniaturized;
}
// NSWindow miniaturize: the window leaves the screen for the Dock, and isVisible is NO.
- (void)miniaturize:(id)sender
{
    [self orderOut:nil];
    _miniaturized = YES;
}
- (void)deminiaturize:(id)sender
{
    if (!_miniaturized)
        return;
    _miniaturized = NO;
    _shown = YES;
    const std::lock_guard guard(World::the().lock);
    World::the().find(_number)->onScreen = true;
}
- (BOOL)canHide
{
    return !_cannotHide;
}
- (void)setCanHide:(BOOL)v
{
    _cannotHide = !v;
}
- (void)setAccessibilityElement:(BOOL)v
{
    _noElement = !v;
}
- (BOOL)isAccessibilityElement
{
    return !_noElement;
}
// NSWindow close posts NSWindowWillCloseNotification while the window is still there.
- (void)close
{
    [NSNotificationCenter.defaultCenter postNotificationName:NSWindowWillCloseNotification object:self];
    [self orderOut:nil];
    _miniaturized = NO;
    if (substitute::keyWindow == self)
        substitute::keyWindow = nil;
    if (_released)
        raise("a window that releases itself when closed, under ARC");
}
- (void)performClose:(id)sender
{
    [self close];
}
- (BOOL)performKeyEquivalent:(NSEvent*)event
{
    return NO;
}
- (BOOL)canBecomeKeyWindow
{
    return YES;
}
- (BOOL)canBecomeMainWindow
{
    return YES;
}
- (NSRect)contentLayoutRect
{
    return [self _contentBounds];
}
- (void)setOpaque:(BOOL)v
{
    _opaque = v;
}
- (void)setBackgroundColor:(NSColor*)v
{
    _background = v;
}
- (void)setHasShadow:(BOOL)v
{
    _shadow = v;
}
- (void)setIgnoresMouseEvents:(BOOL)v
{
    _ignores = v;
}
- (void)setReleasedWhenClosed:(BOOL)v
{
    _released = v;
}
- (void)setHidesOnDeactivate:(BOOL)v
{
    _hides = v;
}
- (void)setAnimationBehavior:(NSWindowAnimationBehavior)v
{
    _animation = v;
}
- (void)setExcludedFromWindowsMenu:(BOOL)v
{
    _excluded = v;
}
- (void)setCollectionBehavior:(NSWindowCollectionBehavior)v
{
    _behavior = v;
}
- (void)setLevel:(NSWindowLevel)v
{
    _level = v;
    if (_behind)
        _behind->setLevel(v);
    if (_number) {
        const std::lock_guard guard(World::the().lock);
        World::the().find(_number)->layer = v;
    }
}
- (void)setMovable:(BOOL)v
{
    _movable = v;
}
@end
