#include "hosts/sim/shell/SimStatusItems.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

struct Delegate : MenuDelegate {
    int updates = 0;
    void menuNeedsUpdate() override { ++updates; }
};

MenuItem itemOf(const std::string& title, int& chosen)
{
    MenuItem item;
    item.title = title;
    item.action = MenuAction{"", MenuTarget::controller, [&chosen](const MenuItem&) { ++chosen; }};
    return item;
}

TEST(SimStatusItems, the_menu_is_brought_up_to_date_before_something_is_chosen_in_it)
{
    SimDesktopFixture fixture;
    SimStatusItems statusItems(fixture.desktop);
    const auto item = statusItems.make(StatusItems::kSquareLength);
    int chosen = 0;
    MenuModel menu{{itemOf("Border", chosen)}};
    Delegate delegate;
    item->setMenu(menu, delegate);
    EXPECT_TRUE(statusItems.choose("Border"));
    EXPECT_EQ(delegate.updates, 1);
    EXPECT_EQ(chosen, 1);
}

TEST(SimStatusItems, only_what_a_user_could_choose_is_chosen)
{
    SimDesktopFixture fixture;
    SimStatusItems statusItems(fixture.desktop);
    EXPECT_FALSE(statusItems.choose("Border")); // there is no menu
    const auto item = statusItems.make(StatusItems::kSquareLength);
    int chosen = 0;
    MenuModel menu{{itemOf("disabled", chosen), itemOf("hidden", chosen), itemOf("heading", chosen)}};
    menu.items[0].isEnabled = false;
    menu.items[1].isHidden = true;
    menu.items[2].action.reset();
    menu.items[2].submenu.push_back(itemOf("inside", chosen));
    Delegate delegate;
    item->setMenu(menu, delegate);
    for (const char* title : {"disabled", "hidden", "heading", "missing"})
        EXPECT_FALSE(statusItems.choose(title)) << title;
    EXPECT_EQ(chosen, 0);
    EXPECT_TRUE(statusItems.choose("inside"));
    EXPECT_EQ(chosen, 1);
}

} // namespace
} // namespace haloric
