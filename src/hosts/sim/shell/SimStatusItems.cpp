#include "hosts/sim/shell/SimStatusItems.h"

#include "hosts/sim/shell/SimMenuSearch.h"

#include <string>

namespace haloric {

class SimStatusItems::Item final : public StatusItem {
public:
    explicit Item(SimStatusItems& owner) : m_owner(owner)
    {
        m_owner.m_item = this;
        note("an item appears");
    }

    ~Item() override
    {
        m_owner.m_item = nullptr;
        note("an item disappears");
    }

    bool hasButton() const override { return true; }
    void setImage(const Image&) override {}
    void setToolTip(const std::string& text) override
    {
        m_toolTip = text;
        note("tooltip \"" + text + "\"");
    }

    void setMenu(const MenuModel& menu, MenuDelegate& delegate) override
    {
        m_menu = &menu;
        m_delegate = &delegate;
    }

    void menuItemsChanged() override {}

    const std::string& toolTip() const { return m_toolTip; }

    const MenuModel* open() const
    {
        if (m_delegate)
            m_delegate->menuNeedsUpdate();
        return m_menu;
    }

private:
    void note(const std::string& text) const { m_owner.m_desktop.journal.note(SimJournal::Kind::menuBar, text); }

    SimStatusItems& m_owner;
    std::string m_toolTip;
    const MenuModel* m_menu = nullptr;
    MenuDelegate* m_delegate = nullptr;
};

std::unique_ptr<StatusItem> SimStatusItems::make(double) { return std::make_unique<Item>(*this); }

std::string SimStatusItems::toolTip() const { return m_item ? m_item->toolTip() : std::string(); }

const MenuModel* SimStatusItems::openMenu() const { return m_item ? m_item->open() : nullptr; }

bool SimStatusItems::choose(std::string_view title)
{
    const MenuModel* menu = openMenu();
    const MenuItem* found = menu ? SimMenuSearch::find(menu->items, title) : nullptr;
    if (!found || !SimMenuSearch::canBeChosen(*found))
        return false;
    m_desktop.journal.note(SimJournal::Kind::menuBar, "the user chooses \"" + std::string(title) + "\"");
    const MenuItem sender = *found; // a copy: the action may change the menu
    if (sender.action->perform)
        sender.action->perform(sender);
    return true;
}

} // namespace haloric
