#import "hosts/macos/form/MacFormRows.h"

#include "hosts/macos/base/MacConversions.h"
#import "hosts/macos/form/MacStepSlider.h"
#include "hosts/macos/shell/MacImages.h"

namespace {

constexpr double kSliderWidth = 180;
constexpr NSSize kColorWellSize = {44, 24};

void perform(haloric::Task task) // by value: it may replace the form, and the row that keeps it
{
    if (task)
        task();
}

bool isSameFile(const haloric::Image& a, const haloric::Image& b)
{
    const auto* file = std::get_if<haloric::FileIcon>(&a);
    const auto* other = std::get_if<haloric::FileIcon>(&b);
    return file && other && *file == *other;
}

} // namespace

@implementation MacToggleRow {
    NSTextField* _label;
    NSSwitch* _switch;
    std::function<void(bool)> _set;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    _label = [MacFormRowView label];
    _switch = [[NSSwitch alloc] initWithFrame:NSZeroRect];
    _switch.target = self;
    _switch.action = @selector(changed:);
    [self layOut:@[ _label ] trailing:_switch];
    return self;
}

- (BOOL)showControl:(const haloric::FormControl&)control
{
    const auto* toggle = std::get_if<haloric::FormToggle>(&control);
    if (!toggle)
        return NO;
    _set = toggle->set;
    _label.stringValue = haloric::nsStringFrom(toggle->label);
    _label.textColor = toggle->isEnabled ? NSColor.labelColor : NSColor.disabledControlTextColor;
    _switch.accessibilityLabel = [self spokenLabel:_label.stringValue];
    _switch.state = toggle->isOn ? NSControlStateValueOn : NSControlStateValueOff;
    _switch.enabled = toggle->isEnabled;
    return YES;
}

- (NSView*)control
{
    return _switch;
}

- (void)changed:(NSSwitch*)sender
{
    const auto set = _set;
    set(sender.state == NSControlStateValueOn);
}

@end

@implementation MacSliderRow {
    NSTextField* _label;
    MacStepSlider* _slider;
    std::function<void(double)> _set;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    _label = [MacFormRowView label];
    _slider = [[MacStepSlider alloc] initWithFrame:NSZeroRect];
    _slider.continuous = YES;
    _slider.target = self;
    _slider.action = @selector(changed:);
    [_slider.widthAnchor constraintEqualToConstant:kSliderWidth].active = YES;
    [self layOut:@[ _label ] trailing:_slider];
    return self;
}

- (BOOL)showControl:(const haloric::FormControl&)control
{
    const auto* slider = std::get_if<haloric::FormSlider>(&control);
    if (!slider)
        return NO;
    _set = slider->set;
    _label.stringValue = haloric::nsStringFrom(slider->label);
    _slider.accessibilityLabel = [self spokenLabel:_label.stringValue];
    _slider.minValue = slider->minimum;
    _slider.maxValue = slider->maximum;
    _slider.step = slider->step;
    _slider.doubleValue = slider->value;
    return YES;
}

- (NSView*)control
{
    return _slider;
}

- (void)changed:(NSSlider*)sender
{
    const auto set = _set;
    set(sender.doubleValue);
}

@end

@implementation MacColorRow {
    NSTextField* _label;
    NSColorWell* _well;
    std::function<void(const haloric::Color&)> _set;
    haloric::Color _shown;
    BOOL _isShowing;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    _label = [MacFormRowView label];
    _well = [[NSColorWell alloc] initWithFrame:NSZeroRect];
    if (@available(macOS 14.0, *))
        _well.supportsAlpha = NO;
    else
        NSColorPanel.sharedColorPanel.showsAlpha = NO;
    _well.target = self;
    _well.action = @selector(changed:);
    [_well.widthAnchor constraintEqualToConstant:kColorWellSize.width].active = YES;
    [_well.heightAnchor constraintEqualToConstant:kColorWellSize.height].active = YES;
    [self layOut:@[ _label ] trailing:_well];
    return self;
}

- (BOOL)showControl:(const haloric::FormControl&)control
{
    const auto* well = std::get_if<haloric::FormColorWell>(&control);
    if (!well)
        return NO;
    _set = well->set;
    _label.stringValue = haloric::nsStringFrom(well->label);
    _label.textColor = well->isEnabled ? NSColor.labelColor : NSColor.disabledControlTextColor;
    _well.accessibilityLabel = [self spokenLabel:_label.stringValue];
    _shown = well->color;
    _isShowing = YES; // an active well passes its colour to the panel, which may send the action back
    // What is the same stays as it was picked: another colour space would throw the panel about during a drag.
    if (haloric::colorFrom(_well.color) != well->color)
        _well.color = haloric::nsColorFrom(well->color);
    if (!well->isEnabled)
        [_well deactivate];
    _isShowing = NO;
    _well.enabled = well->isEnabled;
    return YES;
}

- (NSView*)control
{
    return _well;
}

- (void)changed:(NSColorWell*)sender
{
    const haloric::Color picked = haloric::colorFrom(sender.color);
    if (_isShowing || picked == _shown)
        return;
    const auto set = _set;
    set(picked);
}

@end

@implementation MacPickerRow {
    NSTextField* _label;
    NSPopUpButton* _button;
    std::function<void(std::size_t)> _choose;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    _label = [MacFormRowView label];
    _button = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
    _button.target = self;
    _button.action = @selector(changed:);
    [self layOut:@[ _label ] trailing:_button];
    return self;
}

- (BOOL)showControl:(const haloric::FormControl&)control
{
    const auto* picker = std::get_if<haloric::FormPicker>(&control);
    if (!picker)
        return NO;
    _choose = picker->choose;
    _label.stringValue = haloric::nsStringFrom(picker->label);
    _button.accessibilityLabel = [self spokenLabel:_label.stringValue];
    NSMutableArray<NSString*>* titles = [NSMutableArray array];
    for (const std::string& option : picker->options)
        [titles addObject:haloric::nsStringFrom(option)];
    if (![_button.itemTitles isEqualToArray:titles]) {
        [_button removeAllItems];
        [_button addItemsWithTitles:titles];
    }
    [_button selectItemAtIndex:static_cast<NSInteger>(picker->selected)];
    return YES;
}

- (NSView*)control
{
    return _button;
}

- (void)changed:(NSPopUpButton*)sender
{
    if (sender.indexOfSelectedItem < 0)
        return;
    const auto choose = _choose;
    choose(static_cast<std::size_t>(sender.indexOfSelectedItem));
}

@end

@implementation MacListRow {
    NSImageView* _icon;
    haloric::Image _shownIcon;
    NSTextField* _title;
    NSButton* _removeButton;
    haloric::Task _remove;
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    _icon = [[NSImageView alloc] initWithFrame:NSZeroRect];
    _icon.accessibilityElement = NO; // the title beside it names the application
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
    if (!isSameFile(_shownIcon, row->icon)) { // a form is shown at the rate of a drag, and each icon is read from disk
        _shownIcon = row->icon;
        NSImage* icon = [haloric::nsImageFrom(row->icon) copy]; // the workspace's own keeps its size
        icon.size = NSMakeSize(row->iconSize.width, row->iconSize.height);
        _icon.image = icon;
    }
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

@interface MacMenuRow () <NSMenuDelegate>
@end

@implementation MacMenuRow {
    NSPopUpButton* _button;
    NSString* _title;
    std::function<std::vector<haloric::FormMenuItem>()> _makeItems;
    std::vector<haloric::FormMenuItem> _items; // of the menu that was opened last
}

- (instancetype)initWithFrame:(NSRect)frame
{
    if (!(self = [super initWithFrame:frame]))
        return nil;
    _button = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:YES];
    _button.target = self;
    _button.action = @selector(chosen:);
    _button.menu.delegate = self;
    [self layOut:@[ _button ] trailing:nil];
    return self;
}

- (BOOL)showControl:(const haloric::FormControl&)control
{
    const auto* menu = std::get_if<haloric::FormMenu>(&control);
    if (!menu)
        return NO;
    _makeItems = menu->items;
    _title = haloric::nsStringFrom(menu->label);
    if (_button.menu.numberOfItems == 0)
        [_button.menu addItemWithTitle:_title action:nil keyEquivalent:@""]; // what the button shows
    [_button.menu itemAtIndex:0].title = _title;
    [_button synchronizeTitleAndSelectedItem];
    return YES;
}

- (void)menuNeedsUpdate:(NSMenu*)menu
{
    _items = _makeItems ? _makeItems() : std::vector<haloric::FormMenuItem>();
    // Items of the menu itself, because the button's own methods would join those of the same title.
    while (menu.numberOfItems > 1)
        [menu removeItemAtIndex:1];
    for (const haloric::FormMenuItem& item : _items)
        [menu addItemWithTitle:haloric::nsStringFrom(item.title) action:nil keyEquivalent:@""];
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
