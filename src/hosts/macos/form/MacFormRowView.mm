#import "hosts/macos/form/MacFormRowView.h"

#include "hosts/macos/form/MacFormRows.h"

namespace {

constexpr double kSideMargin = 10;
constexpr double kEndMargin = 8;
constexpr double kGap = 8;

Class classFor(const haloric::FormToggle&) { return MacToggleRow.class; }
Class classFor(const haloric::FormSlider&) { return MacSliderRow.class; }
Class classFor(const haloric::FormColorWell&) { return MacColorRow.class; }
Class classFor(const haloric::FormPicker&) { return MacPickerRow.class; }
Class classFor(const haloric::FormListRow&) { return MacListRow.class; }
Class classFor(const haloric::FormMenu&) { return MacMenuRow.class; }
Class classFor(const haloric::FormButton&) { return MacButtonRow.class; }

} // namespace

@implementation MacFormRowView {
    NSString* _group;
}

+ (MacFormRowView*)rowForControl:(const haloric::FormControl&)control inGroup:(NSString*)group
{
    const Class rowClass = std::visit([](const auto& kind) { return classFor(kind); }, control);
    MacFormRowView* row = [[rowClass alloc] initWithFrame:NSZeroRect];
    row->_group = [group copy];
    [row showControl:control];
    return row;
}

- (NSString*)spokenLabel:(NSString*)label
{
    return _group.length > 0 ? [NSString stringWithFormat:@"%@: %@", _group, label] : label;
}

+ (NSTextField*)label
{
    NSTextField* label = [NSTextField labelWithString:@""];
    label.lineBreakMode = NSLineBreakByTruncatingTail;
    [label setContentCompressionResistancePriority:NSLayoutPriorityDragThatCannotResizeWindow
                                    forOrientation:NSLayoutConstraintOrientationHorizontal];
    return label;
}

- (BOOL)showControl:(const haloric::FormControl&)__unused control
{
    return NO; // each subclass accepts one kind
}

- (NSView*)control
{
    return self;
}

- (void)layOut:(NSArray<NSView*>*)leading trailing:(NSView*)trailing
{
    NSStackView* stack = [[NSStackView alloc] initWithFrame:NSZeroRect];
    stack.translatesAutoresizingMaskIntoConstraints = NO;
    stack.edgeInsets = NSEdgeInsetsMake(kEndMargin, kSideMargin, kEndMargin, kSideMargin);
    stack.spacing = kGap;
    for (NSView* view in leading)
        [stack addView:view inGravity:NSStackViewGravityLeading];
    if (trailing)
        [stack addView:trailing inGravity:NSStackViewGravityTrailing];
    [self addSubview:stack];
    // The row is as high as its highest part and these margins, not less and not more.
    [stack setHuggingPriority:NSLayoutPriorityDefaultHigh forOrientation:NSLayoutConstraintOrientationVertical];
    for (NSView* view in stack.views) {
        [view.topAnchor constraintGreaterThanOrEqualToAnchor:stack.topAnchor constant:kEndMargin].active = YES;
        [view.bottomAnchor constraintLessThanOrEqualToAnchor:stack.bottomAnchor constant:-kEndMargin].active = YES;
    }
    [NSLayoutConstraint activateConstraints:@[
        [stack.leadingAnchor constraintEqualToAnchor:self.leadingAnchor],
        [stack.trailingAnchor constraintEqualToAnchor:self.trailingAnchor],
        [stack.topAnchor constraintEqualToAnchor:self.topAnchor],
        [stack.bottomAnchor constraintEqualToAnchor:self.bottomAnchor],
    ]];
}

@end
