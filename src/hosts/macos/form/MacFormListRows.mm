// The rows of a list of applications, and the buttons.
#import "hosts/macos/form/MacFormRows.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/shell/MacImages.h"

namespace {

void perform(haloric::Task task) // by value: it may replace the form, and the row that keeps it
{
    if (task)
        task();
}

} // namespace

@implementation MacListRow {
    NSImageView* _icon;
    NSTextField* _title;
    NSButton* _removeButton;
    haloric::Task _remove;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    _icon = [[NSImageView alloc] initWithFrame:NSZeroRect];
    _icon.accessibilityElement = NO; // the title beside it says whose it is
    _title = [MacFormRowView label];
    _removeButton = [NSButton buttonWithTitle:@"" target:self action:@selector(removed:)];
    _removeButton.bordered = NO;
    _removeButton.imagePosition = NSImageOnly;
    [self layOut:@[ _icon, _title ] trailing:_removeButton];
    return self;
}

- (BOOL)showControl:(const haloric::FormControl&)control
{
    const auto* row = std::get_if<haloric::FormListRow>(&control);
    if (!row)
        return NO;
    _remove = row->remove;
    NSImage* icon = [haloric::nsImageFrom(row->icon) copy]; // the workspace's own keeps its size
    icon.size = NSMakeSize(row->iconSize.width, row->iconSize.height);
    _icon.image = icon;
    _title.stringValue = haloric::nsStringFrom(row->title);
    _removeButton.image = haloric::nsImageFrom(row->removeImage);
    _removeButton.accessibilityLabel = haloric::nsStringFrom(row->removeLabel);
    _removeButton.toolTip = _removeButton.accessibilityLabel;
    return YES;
}

- (NSView*)control
{
    return _removeButton;
}

- (void)removed:(NSButton*)__unused sender
{
    perform(_remove);
}

@end

@implementation MacMenuRow {
    NSPopUpButton* _button;
    std::vector<haloric::FormMenuItem> _items;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    _button = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:YES];
    _button.target = self;
    _button.action = @selector(chosen:);
    [self layOut:@[ _button ] trailing:nil];
    return self;
}

- (BOOL)showControl:(const haloric::FormControl&)control
{
    const auto* menu = std::get_if<haloric::FormMenu>(&control);
    if (!menu)
        return NO;
    _items = menu->items;
    // Items of the menu itself, because the button's own methods would join those of the same title.
    [_button.menu removeAllItems];
    [_button.menu addItemWithTitle:haloric::nsStringFrom(menu->label) action:nil keyEquivalent:@""]; // what it shows
    for (const haloric::FormMenuItem& item : _items)
        [_button.menu addItemWithTitle:haloric::nsStringFrom(item.title) action:nil keyEquivalent:@""];
    [_button synchronizeTitleAndSelectedItem];
    return YES;
}

- (NSView*)control
{
    return _button;
}

- (void)chosen:(NSPopUpButton*)sender
{
    const NSInteger index = sender.indexOfSelectedItem - 1; // behind the title
    if (index >= 0 && static_cast<std::size_t>(index) < _items.size())
        perform(_items[static_cast<std::size_t>(index)].perform);
}

@end

@implementation MacButtonRow {
    NSButton* _button;
    haloric::Task _perform;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    _button = [NSButton buttonWithTitle:@"" target:self action:@selector(pressed:)];
    [self layOut:@[ _button ] trailing:nil];
    return self;
}

- (BOOL)showControl:(const haloric::FormControl&)control
{
    const auto* button = std::get_if<haloric::FormButton>(&control);
    if (!button)
        return NO;
    _perform = button->perform;
    _button.title = haloric::nsStringFrom(button->label);
    return YES;
}

- (NSView*)control
{
    return _button;
}

- (void)pressed:(NSButton*)__unused sender
{
    perform(_perform);
}

@end
