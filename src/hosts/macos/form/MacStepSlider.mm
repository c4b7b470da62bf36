#import "hosts/macos/form/MacStepSlider.h"

// A slider is presented by its cell.
@interface MacStepSliderCell : NSSliderCell
@end

@implementation MacStepSlider

+ (Class)cellClass
{
    return MacStepSliderCell.class;
}

- (void)keyDown:(NSEvent*)event
{
    NSString* characters = event.charactersIgnoringModifiers;
    switch (characters.length == 1 ? [characters characterAtIndex:0] : 0) {
    case NSRightArrowFunctionKey:
    case NSUpArrowFunctionKey:
        [self moveBy:self.step];
        return;
    case NSLeftArrowFunctionKey:
    case NSDownArrowFunctionKey:
        [self moveBy:-self.step];
        return;
    default:
        [super keyDown:event];
    }
}

- (BOOL)accessibilityPerformIncrement
{
    [self moveBy:self.step];
    return YES;
}

- (BOOL)accessibilityPerformDecrement
{
    [self moveBy:-self.step];
    return YES;
}

- (void)moveBy:(double)distance
{
    self.doubleValue += distance; // AppKit keeps it within the range
    [self sendAction:self.action to:self.target];
}

@end

@implementation MacStepSliderCell

- (BOOL)accessibilityPerformIncrement
{
    return [self.controlView accessibilityPerformIncrement];
}

- (BOOL)accessibilityPerformDecrement
{
    return [self.controlView accessibilityPerformDecrement];
}

@end
