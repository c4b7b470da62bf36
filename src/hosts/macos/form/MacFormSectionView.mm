#import "hosts/macos/form/MacFormSectionView.h"

#include "hosts/macos/form/MacFormLayout.h"

namespace {

constexpr double kGroupRadius = 6;
constexpr double kGroupOpacity = 0.05; // of the text's colour, so that it suits light and dark windows
constexpr double kLineThickness = 1;
constexpr double kLineMargin = 10;
constexpr double kSpacing = 6;

} // namespace

// The rows, on a background that follows the window's appearance.
@interface MacFormGroup : NSStackView
@end

@implementation MacFormGroup

- (void)drawRect:(NSRect)__unused dirtyRect
{
    [[NSColor.labelColor colorWithAlphaComponent:kGroupOpacity] setFill];
    [[NSBezierPath bezierPathWithRoundedRect:self.bounds xRadius:kGroupRadius yRadius:kGroupRadius] fill];
    [NSColor.separatorColor setFill];
    NSView* last = self.arrangedSubviews.lastObject;
    for (NSView* row in self.arrangedSubviews) {
        if (row == last)
            continue;
        const NSRect frame = row.frame;
        NSRectFillUsingOperation(
            NSMakeRect(NSMinX(frame) + kLineMargin, NSMinY(frame), NSWidth(frame) - 2 * kLineMargin, kLineThickness),
            NSCompositingOperationSourceOver);
    }
}

- (void)layout
{
    [super layout];
    self.needsDisplay = YES; // the lines stand between the rows
}

@end

@implementation MacFormSectionView {
    NSTextField* _title;
    MacFormGroup* _group;
    NSTextField* _footer;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    self.orientation = NSUserInterfaceLayoutOrientationVertical;
    self.alignment = NSLayoutAttributeLeading;
    self.spacing = kSpacing;
    _title = [NSTextField labelWithString:@""];
    _title.font = [NSFont boldSystemFontOfSize:NSFont.systemFontSize];
    _group = [[MacFormGroup alloc] initWithFrame:NSZeroRect];
    _group.orientation = NSUserInterfaceLayoutOrientationVertical;
    _group.alignment = NSLayoutAttributeLeading;
    _group.spacing = 0;
    _footer = [NSTextField wrappingLabelWithString:@""];
    _footer.font = [NSFont systemFontOfSize:NSFont.smallSystemFontSize];
    _footer.textColor = NSColor.secondaryLabelColor;
    _footer.selectable = NO;
    return self;
}

- (void)showTitle:(NSString*)title rows:(NSArray<NSView*>*)rows footer:(NSString*)footer
{
    _title.stringValue = title;
    haloric::arrange(_group, rows);
    _footer.stringValue = footer;
    // An empty text is not arranged at all: a stack drops the width of a view that is hidden.
    NSMutableArray<NSView*>* parts = [NSMutableArray array];
    if (title.length > 0)
        [parts addObject:_title];
    [parts addObject:_group];
    if (footer.length > 0)
        [parts addObject:_footer];
    haloric::arrange(self, parts);
}

@end
