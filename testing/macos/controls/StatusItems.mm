// Status items, and their menus as the user of a backing finds them.
#include "platform/StatusItems.h"
#include "controls/Menus.h"
#include "foundation/Balance.h"
#include "world/Backing.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

using substitute::raise;

namespace {

// A menu of the program as the user of the backing finds it when it is opened.
class MenuBehind final : public haloric::MenuDelegate {
public:
    explicit MenuBehind(NSMenu* menu) : m_menu(menu) { m_model.items = itemsOf(m_menu); }

    const haloric::MenuModel& model() const { return m_model; }

    void menuNeedsUpdate() override
    {
        @autoreleasepool {
            [m_menu _open];
            m_model.items = itemsOf(m_menu);
        }
    }

private:
    static std::vector<haloric::MenuItem> itemsOf(NSMenu* menu)
    {
        std::vector<haloric::MenuItem> items;
        for (NSMenuItem* item in menu.itemArray)
            items.push_back(itemFrom(item));
        return items;
    }

    static haloric::MenuItem itemFrom(NSMenuItem* item)
    {
        haloric::MenuItem made;
        made.isSeparator = item.isSeparatorItem;
        if (made.isSeparator)
            return made;
        made.title = [item.title _utf8];
        made.isOn = item.state == NSControlStateValueOn;
        made.isEnabled = item.enabled;
        made.isHidden = item.hidden;
        made.submenu = itemsOf(item.submenu);
        if (item.action)
            made.action = haloric::MenuAction{.perform = [item](const haloric::MenuItem&) {
                NSMenuItem* const chosen = item;
                @autoreleasepool {
                    [chosen.menu _choose:[chosen.menu indexOfItem:chosen]];
                }
            }};
        return made;
    }

    NSMenu* m_menu;
    haloric::MenuModel m_model;
};

} // namespace

@interface NSStatusItem (Button)
- (void)_showToolTip:(NSString*)text;
@end

@interface RTStatusBarButton : NSStatusBarButton {
@public
    NSStatusItem* __weak item;
}
@end
@implementation RTStatusBarButton
- (void)setToolTip:(NSString*)text
{
    [super setToolTip:text];
    [item _showToolTip:text];
}
@end

@implementation NSStatusItem {
    NSStatusBarButton* _button;
    NSMenu* _menu;
    std::unique_ptr<MenuBehind> _menuBehind; // with a backing, which refers to it
    std::unique_ptr<haloric::StatusItem> _behind;
}
- (void)_placeWithLength:(CGFloat)length
{
    if (const substitute::Backing* backing = substitute::backing())
        _behind = backing->adapters.statusItems.make(length);
}
- (void)_takeOut
{
    _behind.reset();
}
- (NSStatusBarButton*)button
{
    if (!_button) {
        RTStatusBarButton* made = [[RTStatusBarButton alloc] initWithFrame:NSZeroRect];
        made->item = self;
        _button = made;
    }
    return _button;
}
- (void)_showToolTip:(NSString*)text
{
    if (_behind)
        _behind->setToolTip(text ? [text _utf8] : std::string());
}
- (NSMenu*)menu
{
    return _menu;
}
- (void)setMenu:(NSMenu*)menu
{
    _menu = menu;
    if (!_behind)
        return;
    auto shown = std::make_unique<MenuBehind>(menu);
    _behind->setMenu(shown->model(), *shown);
    _menuBehind = std::move(shown);
}
@end
@implementation NSStatusBar {
    NSMutableArray<NSStatusItem*>* _all;
}
+ (NSStatusBar*)systemStatusBar
{
    static NSStatusBar* const one = substitute::permanent([] { return [[NSStatusBar alloc] init]; });
    return one;
}
- (instancetype)init
{
    if ((self = [super init]))
        _all = [NSMutableArray array];
    return self;
}
- (NSStatusItem*)statusItemWithLength:(CGFloat)l
{
    NSStatusItem* made = [[NSStatusItem alloc] init];
    [made _placeWithLength:l];
    [_all addObject:made];
    return made;
}
- (void)removeStatusItem:(NSStatusItem*)i
{
    if (![_all containsObject:i])
        raise("a status item is removed that is not there");
    [i _takeOut];
    [_all removeObjectIdenticalTo:i];
}
- (NSArray*)_items
{
    return _all;
}
@end

static const substitute::Counted counted("status items",
                                         [] { return static_cast<long>([NSStatusBar.systemStatusBar _items].count); });
