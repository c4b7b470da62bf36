// A menu bar in memory. It notes what its items are given, and opens their menus as a user does.
#pragma once

#include "foundation/Task.h"
#include "hosts/sim/shell/SimMenuSearch.h"
#include "platform/StatusItems.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace haloric {

class FakeStatusItems final : public StatusItems {
public:
    struct Record {
        double length = 0;
        bool alive = true;
        std::vector<std::string> calls;
        Image image;
        std::string toolTip;
        const MenuModel* menu = nullptr;
        MenuModel menuAsAttached; // as it was when it was set
        MenuModel menuAsReported; // as it was when the item was told of changes
        MenuDelegate* delegate = nullptr;
    };

    bool haveButtons = true;
    Task whileMaking; // runs inside make
    std::vector<std::shared_ptr<Record>> items;

    std::unique_ptr<StatusItem> make(double length) override
    {
        if (whileMaking)
            whileMaking();
        items.push_back(std::make_shared<Record>());
        items.back()->length = length;
        return std::make_unique<Item>(*this, items.back());
    }

    // The only item's menu, as shown if it is opened now.
    const MenuModel& opened() const
    {
        items.at(0)->delegate->menuNeedsUpdate();
        return *items.at(0)->menu;
    }

    const MenuItem& item(std::string_view title) const { return *SimMenuSearch::find(opened().items, title); }

    // False when the menu has no such item, or it cannot be chosen.
    bool choose(std::string_view title) const
    {
        const MenuItem* found = SimMenuSearch::find(opened().items, title);
        if (!found || !SimMenuSearch::canBeChosen(*found))
            return false;
        found->action->perform(*found);
        return true;
    }

private:
    class Item final : public StatusItem {
    public:
        Item(const FakeStatusItems& owner, std::shared_ptr<Record> record) : m_owner(owner), m_record(std::move(record))
        {
        }
        ~Item() override { m_record->alive = false; }

        bool hasButton() const override { return m_owner.haveButtons; }

        void setImage(const Image& image) override
        {
            m_record->calls.emplace_back("setImage");
            m_record->image = image;
        }

        void setToolTip(const std::string& text) override
        {
            m_record->calls.emplace_back("setToolTip");
            m_record->toolTip = text;
        }

        void setMenu(const MenuModel& menu, MenuDelegate& delegate) override
        {
            m_record->calls.emplace_back("setMenu");
            m_record->menu = &menu;
            m_record->menuAsAttached = menu;
            m_record->delegate = &delegate;
        }

        void menuItemsChanged() override
        {
            m_record->calls.emplace_back("menuItemsChanged");
            m_record->menuAsReported = *m_record->menu;
        }

    private:
        const FakeStatusItems& m_owner;
        std::shared_ptr<Record> m_record;
    };
};

} // namespace haloric
