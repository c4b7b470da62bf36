#include "controls/Menus.h"

using substitute::raise;

@implementation NSMenuItem {
    NSString *_title, *_keyEquivalent, *_toolTip;
    SEL _action;
    id __weak _target;
    NSMenu* _submenu;
    NSMenu* __weak _menu;
    NSInteger _state;
    BOOL _enabled, _hidden, _separator;
    NSImage* _image;
    NSEventModifierFlags _keyEquivalentModifierMask;
}
+ (NSMenuItem*)separatorItem
{
    NSMenuItem* made = [[NSMenuItem alloc] init];
    made->_separator = YES;
    return made;
}
- (instancetype)init
{
    if ((self = [super init])) {
        _enabled = YES;
        _title = @"";
        _keyEquivalentModifierMask = NSEventModifierFlagCommand; // its documented default
    }
    return self;
}

- (NSString*)title
{
    return _title;
}

- (void)setTitle:(NSString*)v
{
    _title = v;
}

- (NSString*)keyEquivalent
{
    return _keyEquivalent;
}

- (void)setKeyEquivalent:(NSString*)v
{
    _keyEquivalent = v;
}

- (NSString*)toolTip
{
    return _toolTip;
}

- (void)setToolTip:(NSString*)v
{
    _toolTip = v;
}

- (SEL)action
{
    return _action;
}

- (void)setAction:(SEL)v
{
    _action = v;
}

- (id)target
{
    return _target;
}

- (void)setTarget:(id)v
{
    _target = v;
}

- (NSMenu*)submenu
{
    return _submenu;
}

- (NSInteger)state
{
    return _state;
}

- (void)setState:(NSInteger)v
{
    _state = v;
}

- (BOOL)isEnabled
{
    return _enabled;
}

- (void)setEnabled:(BOOL)v
{
    _enabled = v;
}
- (BOOL)isHidden
{
    return _hidden;
}

- (void)setHidden:(BOOL)v
{
    _hidden = v;
}

- (NSImage*)image
{
    return _image;
}

- (void)setImage:(NSImage*)v
{
    _image = v;
}

- (NSMenu*)menu
{
    return _menu;
}
- (BOOL)isSeparatorItem
{
    return _separator;
}
- (void)_in:(NSMenu*)menu
{
    if (menu && _menu)
        raise("NSInternalInconsistencyException: item to be inserted into menu "
              "already is in another menu");
    _menu = menu;
}
- (void)setSubmenu:(NSMenu*)v
{
    _submenu = v;
    [v _under:self];
}
- (NSEventModifierFlags)keyEquivalentModifierMask
{
    return _keyEquivalentModifierMask;
}
- (void)setKeyEquivalentModifierMask:(NSEventModifierFlags)v
{
    _keyEquivalentModifierMask = v;
}
- (NSMenuItem*)parentItem
{
    return [_menu _parent];
}
@end
@implementation NSMenu {
    NSMutableArray<NSMenuItem*>* _items;
    id __weak _delegate;
    NSMenuItem* __weak _parentItem;
    BOOL _autoenables;
}
- (instancetype)init
{
    if ((self = [super init]))
        _items = [NSMutableArray array];
    return self;
}
- (instancetype)initWithTitle:(NSString*)title
{
    return [self init];
}
- (void)removeItemAtIndex:(NSInteger)i
{
    if (i < 0 || i >= self.numberOfItems)
        raise("NSInvalidArgumentException: removeItemAtIndex:");
    [[self itemAtIndex:i] _in:nil];
    [_items removeObjectAtIndex:static_cast<NSUInteger>(i)];
}
- (void)setAutoenablesItems:(BOOL)v
{
    _autoenables = v;
}
- (void)setDelegate:(id)v
{
    _delegate = v;
}
- (id)delegate
{
    return _delegate;
}
- (void)addItem:(NSMenuItem*)item
{
    [item _in:self];
    [_items addObject:item];
}
- (NSMenuItem*)addItemWithTitle:(NSString*)t action:(SEL)a keyEquivalent:(NSString*)k
{
    NSMenuItem* item = [[NSMenuItem alloc] init];
    item.title = t;
    item.action = a;
    item.keyEquivalent = k;
    [self addItem:item];
    return item;
}
- (void)removeAllItems
{
    for (NSMenuItem* i in _items)
        [i _in:nil];
    [_items removeAllObjects];
}
- (NSMenuItem*)itemAtIndex:(NSInteger)i
{
    return _items[static_cast<NSUInteger>(i)];
}
- (NSInteger)indexOfItem:(NSMenuItem*)item
{
    const NSUInteger at = [_items indexOfObject:item];
    return at == NSIntegerMax ? -1 : static_cast<NSInteger>(at);
}
- (NSInteger)numberOfItems
{
    return static_cast<NSInteger>(_items.count);
}
- (NSArray*)itemArray
{
    return [_items copy];
}
- (void)_under:(NSMenuItem*)item
{
    _parentItem = item;
}
- (NSMenuItem*)_parent
{
    return _parentItem;
}
// As a person opens it.
- (void)_open
{
    id d = _delegate;
    if ([d respondsToSelector:@selector(menuNeedsUpdate:)])
        [d menuNeedsUpdate:self];
}
- (void)_choose:(NSInteger)index
{
    NSMenuItem* item = [self itemAtIndex:index];
    if (!item.enabled || !item.action)
        return;
    id target = item.target ? item.target : NSApp;
    if ([target respondsToSelector:item.action])
        [target performSelector:item.action withObject:item];
}
@end
