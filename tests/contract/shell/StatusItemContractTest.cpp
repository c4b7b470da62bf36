// The item in the menu bar or the tray, and its menu.
#include "contract/shell/ShellContract.h"
#include "drawing/Canvas.h"
#include "platform/StatusItems.h"

namespace haloric {
namespace {

using Items = std::vector<ContractMenuItem>;

Image frameImage()
{
    return DrawnImage{
        .size = {18, 18}, .isTemplate = true, .isFlipped = true, .draw = [](Canvas& canvas, const SystemColors&) {
            canvas.stroke(Path::roundedRect({2, 3, 14, 12}, 2), {0, 0, 0, 1}, 1.6);
        }};
}

class StatusItemContract : public ShellContract, protected MenuDelegate {
protected:
    StatusItemContract()
    {
        model.items = {heading("Contract"), MenuItem::separator(), toggle("Border", true), toggle("Dimming", false),
                       heading("Colours"),  action("Hidden"),      action("Settings"),     action("Unavailable")};
        model.items[4].isEnabled = true;
        model.items[4].submenu = {action("Blue"), action("Teal")};
        model.items[5].isHidden = true;
        model.items[7].isEnabled = false;
    }

    static MenuItem heading(const std::string& title)
    {
        MenuItem item;
        item.title = title;
        item.isEnabled = false;
        return item;
    }

    MenuItem action(const std::string& title)
    {
        MenuItem item;
        item.title = title;
        item.action = MenuAction{"perform:", MenuTarget::controller, [this](const MenuItem& sender) {
                                     chosen.push_back(sender.title);
                                     if (whenChosen)
                                         whenChosen();
                                 }};
        return item;
    }

    MenuItem toggle(const std::string& title, bool isOn)
    {
        MenuItem item = action(title);
        item.isCheckable = true;
        item.isOn = isOn;
        return item;
    }

    void menuNeedsUpdate() override
    {
        ++updates;
        if (whenUpdated)
            whenUpdated();
    }

    void showItem()
    {
        item = shell->menuBar().statusItems().make(StatusItems::kSquareLength);
        ASSERT_TRUE(item);
        ASSERT_TRUE(item->hasButton());
        item->setImage(frameImage());
        item->setToolTip("Contract");
        item->setMenu(model, *this);
        ASSERT_TRUE(shell->waitUntil([&] { return shell->menuBar().showsItem(); }));
    }

    MenuModel model;
    std::vector<std::string> chosen;
    Task whenChosen;
    Task whenUpdated;
    int updates = 0;
    std::unique_ptr<StatusItem> item; // ends before the model
};

TEST_P(StatusItemContract, an_item_is_shown_with_its_tooltip_until_it_is_destroyed)
{
    EXPECT_FALSE(shell->menuBar().showsItem());
    showItem();
    item->setToolTip("Contract, paused");
    EXPECT_EQ(shell->menuBar().toolTip(), "Contract, paused");

    item.reset();
    EXPECT_TRUE(shell->waitUntil([&] { return !shell->menuBar().showsItem(); }));
}

TEST_P(StatusItemContract, the_menu_shows_titles_marks_states_and_submenus)
{
    showItem();

    EXPECT_EQ(shell->menuBar().readMenu(), (Items{{.title = "Contract", .isEnabled = false},
                                                  {.title = "Border", .isOn = true},
                                                  {.title = "Dimming"},
                                                  {.title = "Colours", .submenu = {{"Blue"}, {"Teal"}}},
                                                  {.title = "Settings"},
                                                  {.title = "Unavailable", .isEnabled = false}}));
}

TEST_P(StatusItemContract, the_delegate_may_change_the_items_before_the_menu_opens)
{
    showItem();
    whenUpdated = [&] {
        model.items[2].isOn = false;
        model.items[5].isHidden = false;
        model.items[6].title = "Settings & more";
    };
    const int before = updates;

    const Items shown = shell->menuBar().readMenu();
    EXPECT_GT(updates, before);
    ASSERT_EQ(shown.size(), 7u);
    EXPECT_FALSE(shown[1].isOn);
    EXPECT_EQ(shown[4].title, "Hidden");
    EXPECT_EQ(shown[5].title, "Settings & more");
}

TEST_P(StatusItemContract, changes_of_the_items_are_shown)
{
    showItem();
    model.items[3].isOn = true;
    model.items[4].submenu[1].title = "Green";
    model.items[7].isEnabled = true;
    item->menuItemsChanged();

    const Items shown = shell->menuBar().readMenu();
    ASSERT_EQ(shown.size(), 6u);
    EXPECT_TRUE(shown[2].isOn);
    EXPECT_EQ(shown[3].submenu, (Items{{"Blue"}, {"Green"}}));
    EXPECT_TRUE(shown[5].isEnabled);
}

TEST_P(StatusItemContract, a_chosen_item_performs_its_action_once_with_itself)
{
    showItem();
    ASSERT_TRUE(shell->menuBar().choose({"Settings"}));
    EXPECT_TRUE(shell->waitUntil([&] { return !chosen.empty(); }));
    ASSERT_TRUE(shell->menuBar().choose({"Colours", "Teal"}));
    EXPECT_TRUE(shell->waitUntil([&] { return chosen.size() > 1; }));

    shell->turnFor(Seconds(0.05));
    EXPECT_EQ(chosen, (std::vector<std::string>{"Settings", "Teal"}));
}

TEST_P(StatusItemContract, a_mark_is_the_models_and_not_changed_by_choosing)
{
    showItem();
    ASSERT_TRUE(shell->menuBar().choose({"Border"}));
    EXPECT_TRUE(shell->waitUntil([&] { return !chosen.empty(); }));

    EXPECT_TRUE(shell->menuBar().readMenu().at(1).isOn);
}

TEST_P(StatusItemContract, disabled_and_hidden_items_cannot_be_chosen)
{
    showItem();

    EXPECT_FALSE(shell->menuBar().choose({"Unavailable"}));
    EXPECT_FALSE(shell->menuBar().choose({"Hidden"}));
    EXPECT_FALSE(shell->menuBar().choose({"Contract"}));
    shell->turnFor(Seconds(0.05));
    EXPECT_TRUE(chosen.empty());
}

TEST_P(StatusItemContract, another_menu_replaces_the_first)
{
    showItem();
    MenuModel other;
    other.items = {action("Only")};
    item->setMenu(other, *this);

    EXPECT_EQ(shell->menuBar().readMenu(), Items{{"Only"}});
    ASSERT_TRUE(shell->menuBar().choose({"Only"}));
    EXPECT_TRUE(shell->waitUntil([&] { return !chosen.empty(); }));
    item.reset();
}

TEST_P(StatusItemContract, an_action_may_destroy_the_item)
{
    EndingItself ending;
    ending.end = [&] { item.reset(); };
    MenuItem last = action("Remove");
    last.action->perform = [call = ending.callback()](const MenuItem&) { call(); };
    model.items.push_back(last);
    showItem();

    ASSERT_TRUE(shell->menuBar().choose({"Remove"}));
    EXPECT_TRUE(shell->waitUntil([&] { return ending.calls == 1; }));
    EXPECT_TRUE(ending.keepsCaptures);
    EXPECT_TRUE(shell->waitUntil([&] { return !shell->menuBar().showsItem(); }));
}

INSTANTIATE_TEST_SUITE_P(Hosts, StatusItemContract, testing::ValuesIn(contractShells()), contractShellName);

} // namespace
} // namespace haloric
