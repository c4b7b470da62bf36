#include "hosts/macos/shell/MacStatusItems.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/shell/MacImages.h"
#include "hosts/macos/shell/MacMenu.h"

namespace haloric {
namespace {

class MacStatusItem final : public StatusItem {
public:
    explicit MacStatusItem(double length) : m_item([NSStatusBar.systemStatusBar statusItemWithLength:length]) {}

    ~MacStatusItem() override
    {
        [m_menu forgetModel];
        [NSStatusBar.systemStatusBar removeStatusItem:m_item];
    }

    MacStatusItem(const MacStatusItem&) = delete;
    MacStatusItem& operator=(const MacStatusItem&) = delete;

    bool hasButton() const override { return m_item.button != nil; }
    void setImage(const Image& image) override { m_item.button.image = nsImageFrom(image); }

    void setToolTip(const std::string& text) override
    {
        m_item.button.toolTip = nsStringFrom(text);
        m_item.button.accessibilityLabel = nsStringFrom(text); // the icon has no name
    }

    void setMenu(const MenuModel& menu, MenuDelegate& delegate) override
    {
        [m_menu forgetModel];
        m_menu = [[MacMenu alloc] initWithModel:&menu delegate:&delegate];
        m_item.menu = m_menu.menu;
    }

    void menuItemsChanged() override { [m_menu showModel]; }

private:
    NSStatusItem* const m_item;
    MacMenu* m_menu = nil;
};

} // namespace

std::unique_ptr<StatusItem> MacStatusItems::make(double length) { return std::make_unique<MacStatusItem>(length); }

} // namespace haloric
