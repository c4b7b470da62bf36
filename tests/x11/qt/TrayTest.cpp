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

    // The icon: a window of the program inside of the panel, once a click in its middle would reach it. Panels move
    // about while they take one in.
    ScreenRect findIcon()
    {
        ScreenRect icon;
        const auto isThere = [&] {
            const xcb_window_t window = iconBelow(session.observer().root());
            icon = session.observer().rectOnRoot(window);
            return window != XCB_WINDOW_NONE && isReachedAt(window, icon.x + icon.width / 2, icon.y + icon.height / 2);
        };
        if (!session.observer().waitUntil(isThere)) {
            session.keepFailure("no-icon");
            return {};
        }
        return icon;
    }

    xcb_window_t iconBelow(xcb_window_t window)
    {
        for (const xcb_window_t child : childrenOf(window)) {
            const bool isInside = window != session.observer().root();
            if (isInside && session.observer().text(child, "WM_CLASS").starts_with("com.kestrow.haloric"))
                return child;
            if (const xcb_window_t found = iconBelow(child))
                return found;
        }
        return XCB_WINDOW_NONE;
    }

    std::vector<xcb_window_t> childrenOf(xcb_window_t window)
    {
        xcb_connection_t* raw = session.observer().raw();
        const TestConnection::Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(raw, xcb_query_tree(raw, window), nullptr));
        if (!tree)
            return {};
        const xcb_window_t* first = xcb_query_tree_children(tree.get());
        return {first, first + xcb_query_tree_children_length(tree.get())};
    }

    bool isReachedAt(xcb_window_t wanted, int x, int y)
    {
        xcb_connection_t* raw = session.observer().raw();
        const xcb_window_t root = session.observer().root();
        for (xcb_window_t window = root; window != wanted;) {
            const auto cookie = xcb_translate_coordinates(raw, root, window, static_cast<std::int16_t>(x),
                                                          static_cast<std::int16_t>(y));
            const TestConnection::Reply<xcb_translate_coordinates_reply_t> reply(
                xcb_translate_coordinates_reply(raw, cookie, nullptr));
            if (!reply || reply->child == XCB_WINDOW_NONE)
                return false;
            window = reply->child;
        }
        return true;
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

TEST_F(Tray, the_keys_that_the_menu_shows_work_while_it_is_open)
{
    startPanel();
    toy.emplace(session);
    toy->tell("tray");
    openMenu(XCB_BUTTON_INDEX_1);
    ASSERT_TRUE(session.observer().waitUntil([this] { return toy->isVisible("Border"); }));
    session.input().chord({Key::kControl, ','});
    EXPECT_TRUE(toy->hears("menu Settings…"));
    EXPECT_TRUE(session.observer().waitUntil([this] { return !toy->isVisible("Border"); }));
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
    ASSERT_TRUE(
        session.observer().waitUntil([this] { return iconBelow(session.observer().root()) == XCB_WINDOW_NONE; }));
    startPanel();
    EXPECT_GT(findIcon().width, 0);
}

} // namespace
} // namespace haloric
