#import "hosts/macos/form/MacFormView.h"

#include "hosts/macos/base/MacConversions.h"
#import "hosts/macos/form/MacFormButtons.h"
#include "hosts/macos/form/MacFormLayout.h"
#import "hosts/macos/form/MacFormRowView.h"
#import "hosts/macos/form/MacFormSectionView.h"

namespace {

constexpr double kMargin = 20;
constexpr double kSpacing = 18;

} // namespace

// A form is read from its top.
@interface MacFormDocument : NSStackView
@end

@implementation MacFormDocument

- (BOOL)isFlipped
{
    return YES;
}

@end

@implementation MacFormView {
    MacFormDocument* _document;
    MacFormButtons* _buttons;
    NSDictionary<NSString*, MacFormRowView*>* _rows;
    NSDictionary<NSString*, MacFormSectionView*>* _sections;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    self.hasVerticalScroller = YES;
    self.autohidesScrollers = YES;
    self.drawsBackground = NO;
    _rows = @{};
    _sections = @{};
    _buttons = [[MacFormButtons alloc] initWithFrame:NSZeroRect];
    _document = [[MacFormDocument alloc] initWithFrame:NSZeroRect];
    _document.translatesAutoresizingMaskIntoConstraints = NO;
    _document.orientation = NSUserInterfaceLayoutOrientationVertical;
    _document.alignment = NSLayoutAttributeLeading;
    _document.spacing = kSpacing;
    _document.edgeInsets = NSEdgeInsetsMake(kMargin, kMargin, kMargin, kMargin);
    self.documentView = _document;
    NSView* clip = self.contentView;
    [NSLayoutConstraint activateConstraints:@[
        [_document.topAnchor constraintEqualToAnchor:clip.topAnchor],
        [_document.leadingAnchor constraintEqualToAnchor:clip.leadingAnchor],
        [_document.trailingAnchor constraintEqualToAnchor:clip.trailingAnchor],
    ]];
    return self;
}

- (void)showForm:(const haloric::FormModel&)form
{
    NSMutableDictionary<NSString*, MacFormRowView*>* rows = [NSMutableDictionary dictionary];
    NSMutableDictionary<NSString*, MacFormSectionView*>* sections = [NSMutableDictionary dictionary];
    NSMutableArray<NSView*>* parts = [NSMutableArray array];
    for (const haloric::FormSection& section : form.sections) {
        NSString* identity = haloric::nsStringFrom(section.id);
        MacFormSectionView* view = _sections[identity];
        if (!view)
            view = [[MacFormSectionView alloc] initWithFrame:NSZeroRect];
        [view showTitle:haloric::nsStringFrom(section.title)
                   rows:[self viewsFor:section.rows inGroup:haloric::nsStringFrom(section.title) keeping:rows]
                 footer:haloric::nsStringFrom(section.footer)];
        sections[identity] = view;
        [parts addObject:view];
    }
    [_buttons showButtons:[self viewsFor:form.buttons inGroup:@"" keeping:rows] within:[self widthOfContent]];
    [parts addObject:_buttons];
    haloric::arrange(_document, parts);

    // What goes may be the control whose action this is; it stays until that action has ended.
    NSArray* previous = @[ _rows, _sections ];
    dispatch_async(dispatch_get_main_queue(), ^{
      (void)previous;
    });
    _rows = rows;
    _sections = sections;
}

// Beside a scroller, whether it is there by now or not.
- (CGFloat)widthOfContent
{
    const CGFloat scroller = [NSScroller scrollerWidthForControlSize:NSControlSizeRegular
                                                       scrollerStyle:NSScrollerStyleLegacy];
    return NSWidth(self.frame) - 2 * kMargin - scroller;
}

- (NSArray<NSView*>*)viewsFor:(const std::vector<haloric::FormRow>&)rows
                      inGroup:(NSString*)group
                      keeping:(NSMutableDictionary<NSString*, MacFormRowView*>*)kept
{
    NSMutableArray<NSView*>* views = [NSMutableArray array];
    for (const haloric::FormRow& row : rows) {
        NSString* identity = haloric::nsStringFrom(row.id);
        MacFormRowView* view = _rows[identity];
        if (![view showControl:row.control])
            view = [MacFormRowView rowForControl:row.control inGroup:group];
        kept[identity] = view;
        [views addObject:view];
    }
    return views;
}

@end
