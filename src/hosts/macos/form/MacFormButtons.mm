#import "hosts/macos/form/MacFormButtons.h"

#include "hosts/macos/form/MacFormLayout.h"

namespace {

NSArray<NSArray<NSView*>*>* linesOf(NSArray<NSView*>* buttons, CGFloat width)
{
    NSMutableArray<NSMutableArray<NSView*>*>* lines = [NSMutableArray array];
    CGFloat used = 0;
    for (NSView* button in buttons) {
        const CGFloat needed = button.fittingSize.width;
        if (lines.count == 0 || used + needed > width) {
            [lines addObject:[NSMutableArray array]];
            used = 0;
        }
        [lines.lastObject addObject:button];
        used += needed;
    }
    return lines;
}

} // namespace

@implementation MacFormButtons {
    NSArray<NSStackView*>* _lines;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    self.orientation = NSUserInterfaceLayoutOrientationVertical;
    self.alignment = NSLayoutAttributeLeading;
    self.spacing = 0;
    _lines = @[];
    return self;
}

- (void)showButtons:(NSArray<NSView*>*)buttons within:(CGFloat)width
{
    NSArray<NSArray<NSView*>*>* wanted = linesOf(buttons, width);
    NSMutableArray<NSStackView*>* lines = [NSMutableArray array];
    for (NSUInteger index = 0; index < wanted.count; ++index) {
        NSStackView* line = index < _lines.count ? _lines[index] : [[NSStackView alloc] initWithFrame:NSZeroRect];
        line.spacing = 0;
        // The line is as wide as the form; what the buttons leave stays free at its end.
        [line setHuggingPriority:1 forOrientation:NSLayoutConstraintOrientationHorizontal];
        haloric::arrange(line, wanted[index]);
        [lines addObject:line];
    }
    haloric::arrange(self, lines);
    _lines = lines;
}

@end
