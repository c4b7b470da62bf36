#include "x11/qt/QtToy.h"

namespace haloric {
namespace {

struct Tray : testing::Test {
    X11Session session{WindowManager::openbox};
    std::unique_ptr<ChildProcess> panel;
    std::optional<QtToy> toy;

    void startPanel()
    {
        panel = std::make_unique<ChildProcess>(ChildProcess::Options{
            {"trayer", "--edge", "top", "--align", "left", "--height", "24", "--widthtype", "request"},
            session.environment(),
            session.server().folder() / "panel.log",
            -1});
    }

    // The icon inside of the panel: a window of its own there.
    ScreenRect findIcon()
    {
        ScreenRect icon;
        const auto isThere = [&] {
            icon = iconBelow(session.observer().root(), 0);
            return icon.width > 0;
        };
        if (!session.observer().waitUntil(isThere))
            session.keepFailure("no-icon");
        return icon;
    }

    ScreenRect iconBelow(xcb_window_t window, int depth)
    {
        xcb_connection_t* raw = session.observer().raw();
        const TestConnection::Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(raw, xcb_query_tree(raw, window), nullptr));
        if (!tree)
            return {};
        if (depth > 0 && session.observer().text(window, "WM_CLASS").starts_with("com.kestrow.haloric"))
            return session.observer().rectOnRoot(window);
        const xcb_window_t* children = xcb_query_tree_children(tree.get());
        for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
            if (const ScreenRect found = iconBelow(children[index], depth + 1); found.width > 0 && found.width < 64)
                return found;
        }
        return {};
    }

    void openMenu(std::uint8_t button)
    {
        const ScreenRect icon = findIcon();
        session.input().moveTo(icon.x + icon.width / 2, icon.y + icon.height / 2);
        session.input().press(button);
        session.input().release(button);
        EXPECT_TRUE(toy->hears("menu needs update"));
    }
};

TEST_F(Tray, an_item_of_the_menu_is_performed_by_a_left_click)
{
    startPanel();
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(toy->click("Border"));
    EXPECT_TRUE(toy->hears("menu Border"));
}

TEST_F(Tray, a_right_click_opens_the_menu_as_well)
{
    startPanel();
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_3);
    ASSERT_TRUE(toy->click("Settings…"));
    EXPECT_TRUE(toy->hears("menu Settings…"));
}

TEST_F(Tray, the_menu_is_used_by_keys)
{
    startPanel();
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(session.observer().waitUntil([this] { return toy->isVisible("Border"); }));
    toy->press(Key::kUp);
    toy->press(Key::kReturn);
    EXPECT_TRUE(toy->hears("menu Quit Haloric"));
}

TEST_F(Tray, a_preset_is_chosen_from_the_submenu)
{
    startPanel();
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(toy->click("Accent color"));
    ASSERT_TRUE(toy->click("Teal"));
    EXPECT_TRUE(toy->hears("menu Teal"));
}

TEST_F(Tray, disabled_and_hidden_items_do_nothing)
{
    startPanel();
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(toy->click("Launch at Login"));
    EXPECT_FALSE(toy->hasSaid("menu Launch"));
    EXPECT_FALSE(toy->isVisible("Grant Accessibility Permission…"));
}

TEST_F(Tray, an_item_appears_in_a_tray_that_comes_later)
{
    toy.emplace(session);
    toy->tell("tray");
    EXPECT_EQ(toy->focused(), "");
    startPanel();
    EXPECT_GT(findIcon().width, 0);
}

TEST_F(Tray, an_item_appears_again_in_the_next_tray)
{
    startPanel();
    toy.emplace(session);
    toy->tell("tray");
    ASSERT_GT(findIcon().width, 0);
    panel.reset();
    ASSERT_TRUE(session.observer().waitUntil([this] { return iconBelow(session.observer().root(), 0).width == 0; }));
    startPanel();
    EXPECT_GT(findIcon().width, 0);
}

} // namespace
} // namespace haloric
