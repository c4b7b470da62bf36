#import "hosts/macos/overlay/MacContentView.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/base/OwnPool.h"
#include "hosts/macos/overlay/MacCanvas.h"

namespace {

haloric::CompositingOperation compositingOperation(NSGraphicsContext* context)
{
    return context.compositingOperation == NSCompositingOperationCopy ? haloric::CompositingOperation::copy
                                                                      : haloric::CompositingOperation::sourceOver;
}

} // namespace

@implementation MacContentView {
    haloric::ContentView* _content;
}

- (instancetype)initWithContent:(haloric::ContentView*)content
{
    if ((self = [super initWithFrame:NSZeroRect]))
        _content = content;
    return self;
}

- (void)forgetContent
{
    _content = nullptr;
}

- (BOOL)isOpaque
{
    return _content && _content->isOpaque();
}

- (BOOL)isFlipped
{
    return _content && _content->isFlipped();
}

- (void)drawRect:(NSRect)__unused dirtyRect
{
    NSGraphicsContext* context = NSGraphicsContext.currentContext;
    if (!_content || !context)
        return;
    haloric::withOwnPool([&] {
        haloric::MacCanvas canvas(context.CGContext, compositingOperation(context));
        _content->draw(canvas, haloric::rectFrom(self.bounds));
    });
}

// Nothing of the old picture fits a view of another size or scale.

- (void)setFrameSize:(NSSize)size
{
    [super setFrameSize:size];
    self.needsDisplay = YES;
}

- (void)viewDidChangeBackingProperties
{
    [super viewDidChangeBackingProperties];
    self.needsDisplay = YES;
}

@end
