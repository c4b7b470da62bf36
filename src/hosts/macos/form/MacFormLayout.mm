#include "hosts/macos/form/MacFormLayout.h"

namespace haloric {
namespace {

void add(NSView* view, NSStackView* stack, NSInteger index)
{
    const bool isNew = view.superview != stack;
    if ([stack.arrangedSubviews containsObject:view])
        [stack removeArrangedSubview:view]; // it stays a subview
    [stack insertArrangedSubview:view atIndex:index];
    if (isNew && stack.orientation == NSUserInterfaceLayoutOrientationVertical) {
        const CGFloat margins = stack.edgeInsets.left + stack.edgeInsets.right;
        [view.widthAnchor constraintEqualToAnchor:stack.widthAnchor constant:-margins].active = YES;
    }
}

} // namespace

void arrange(NSStackView* stack, NSArray<NSView*>* views)
{
    if ([stack.arrangedSubviews isEqualToArray:views])
        return;
    for (NSView* old in [stack.arrangedSubviews copy])
        if (![views containsObject:old])
            [old removeFromSuperview];
    NSInteger index = 0;
    for (NSView* view in views) {
        NSArray<NSView*>* arranged = stack.arrangedSubviews;
        const auto place = static_cast<NSUInteger>(index);
        if (place >= arranged.count || arranged[place] != view)
            add(view, stack, index);
        ++index;
    }
    stack.needsDisplay = YES;
}

} // namespace haloric
