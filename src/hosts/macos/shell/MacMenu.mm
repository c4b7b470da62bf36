#import "hosts/macos/shell/MacMenu.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/shell/MacImages.h"

using Items = std::vector<haloric::MenuItem>;

@implementation MacMenu {
    const haloric::MenuModel* _model;
    haloric::MenuDelegate* _delegate;
}

- (instancetype)initWithModel:(const haloric::MenuModel*)model delegate:(haloric::MenuDelegate*)delegate
{
    if (!(self = [super init]))
        return nil;
    _model = model;
    _delegate = delegate;
    _menu = [self makeMenu:model->items];
    _menu.delegate = self;
    [self showModel];
    return self;
}

- (NSMenu*)makeMenu:(const Items&)items
{
    NSMenu* menu = [[NSMenu alloc] init];
    menu.autoenablesItems = NO; // the model decides
    for (const haloric::MenuItem& item : items)
        [menu addItem:[self makeItem:item]];
    return menu;
}

- (NSMenuItem*)makeItem:(const haloric::MenuItem&)item
{
    if (item.isSeparator)
        return [NSMenuItem separatorItem];
    NSMenuItem* made = [[NSMenuItem alloc] init];
    made.keyEquivalent = haloric::nsStringFrom(item.keyEquivalent);
    if (!item.submenu.empty())
        made.submenu = [self makeMenu:item.submenu];
    if (!item.action)
        return made;
    if (item.action->target == haloric::MenuTarget::none) {
        made.action = NSSelectorFromString(haloric::nsStringFrom(item.action->selector));
    } else {
        made.action = @selector(performItem:);
        made.target = self;
    }
    return made;
}

- (void)showModel
{
    if (_model)
        [self show:_model->items in:_menu];
}

- (void)show:(const Items&)items in:(NSMenu*)menu
{
    NSInteger index = 0;
    for (const haloric::MenuItem& item : items) {
        NSMenuItem* shown = [menu itemAtIndex:index++];
        if (item.isSeparator)
            continue;
        shown.title = haloric::nsStringFrom(item.title);
        shown.state = item.isOn ? NSControlStateValueOn : NSControlStateValueOff;
        shown.enabled = item.isEnabled;
        shown.hidden = item.isHidden;
        shown.toolTip = item.toolTip.empty() ? nil : haloric::nsStringFrom(item.toolTip);
        shown.image = haloric::nsImageFrom(item.image);
        if (shown.submenu)
            [self show:item.submenu in:shown.submenu];
    }
}

- (void)forgetModel
{
    _model = nullptr;
    _delegate = nullptr;
}

- (void)menuNeedsUpdate:(NSMenu*)__unused menu
{
    if (_delegate)
        _delegate->menuNeedsUpdate();
    [self showModel];
}

- (void)performItem:(NSMenuItem*)sender
{
    const haloric::MenuItem* item = _model ? [self modelItemOf:sender] : nullptr;
    if (!item || !item->action)
        return;
    const auto perform = item->action->perform; // it may change the items
    perform(*item);
}

// The model's items have the same number, order and nesting.
- (const haloric::MenuItem*)modelItemOf:(NSMenuItem*)item
{
    NSMenuItem* parent = item.parentItem;
    const Items& items = parent ? [self modelItemOf:parent]->submenu : _model -> items;
    return &items.at(static_cast<std::size_t>([item.menu indexOfItem:item]));
}

@end
