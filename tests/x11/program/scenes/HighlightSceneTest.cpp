// The highlight of the focused window, and its complete removal.
#include "x11/program/scenes/Scene.h"

namespace haloric {
namespace {

class HighlightScene : public Scene {};
INSTANTIATE_TEST_SUITE_P(Desktops, HighlightScene, testing::Values(kOpenboxPicom, kXfwm4, kOpenbox), nameOf);

class GlowScene : public Scene {};
INSTANTIATE_TEST_SUITE_P(Desktops, GlowScene, testing::Values(kOpenboxPicom, kXfwm4), nameOf);

TEST_P(HighlightScene, the_border_lies_on_each_edge_and_the_inside_is_unchanged)
{
    const auto client = openFocused();
    const ScreenRect frame = client->visibleFrame();
    const ScreenImage before = settled(frame);
    startAround(*client);
    const ScreenImage after = settled(frame);
    EXPECT_EQ(differences(before, after, grown(frame, -kCornerRadius)), 0);
    const ScreenRect content = client->content();
    const ScreenRect insideOfBorder{content.x + kBorderWidth, frame.y + kCornerRadius, content.width - 2 * kBorderWidth,
                                    frame.height - 2 * kCornerRadius};
    EXPECT_EQ(differences(before, after, insideOfBorder), 0);
}

TEST_P(HighlightScene, the_corners_outside_the_rounded_border_are_unchanged)
{
    const auto client = openFocused();
    const ScreenRect frame = client->visibleFrame();
    const ScreenImage before = settled(frame);
    startAround(*client, R"({"pulseEnabled": false, "glowEnabled": false})");
    const ScreenImage after = settled(frame);
    for (const int x : {frame.x, frame.right() - 2}) {
        for (const int y : {frame.y, frame.bottom() - 2})
            EXPECT_EQ(differences(before, after, {x, y, 2, 2}), 0) << "at " << x << ", " << y;
    }
}

TEST_P(GlowScene, the_glow_falls_off_outside_and_ends)
{
    const auto client = openFocused();
    const ScreenRect frame = client->visibleFrame();
    const ScreenRect around = grown(frame, 60);
    const ScreenImage before = settled(around);
    startAround(*client);
    const ScreenImage after = settled(around);
    const int middleX = frame.x + frame.width / 2;
    const int middleY = frame.y + frame.height / 2;
    const auto strength = [&](int x, int y) { return colorDistance(before.at(x, y), after.at(x, y)); };
    const auto expectFallingOff = [&](const char* side, const std::function<int(int)>& strengthAt) {
        SCOPED_TRACE(side);
        EXPECT_GT(strengthAt(1), 10);
        for (const int away : {5, 9, 13})
            EXPECT_LT(strengthAt(away), strengthAt(away - 4)) << away << " pixels away";
        EXPECT_LE(strengthAt(kGlowRadius + 2), 1);
    };
    expectFallingOff("left", [&](int away) { return strength(frame.x - away, middleY); });
    expectFallingOff("right", [&](int away) { return strength(frame.right() - 1 + away, middleY); });
    expectFallingOff("top", [&](int away) { return strength(middleX, frame.y - away); });
    expectFallingOff("bottom", [&](int away) { return strength(middleX, frame.bottom() - 1 + away); });
}

TEST_P(HighlightScene, it_follows_the_focus_to_another_window_and_the_first_is_unchanged)
{
    const auto first = openFocused({.title = "first", .content = {200, 300, 500, 350}, .color = 0xD0D0A0});
    const auto second = openFocused({.title = "second", .content = {1000, 300, 600, 400}, .color = 0xA0D0D0});
    const ScreenImage firstUnfocused = settled(grown(first->visibleFrame(), 60));
    ASSERT_TRUE(first->focus());
    startAround(*first);
    ASSERT_TRUE(second->focus());
    EXPECT_TRUE(waitForBorder(*second)) << log();
    EXPECT_TRUE(waitForPicture(firstUnfocused));
}

TEST_P(HighlightScene, it_follows_the_focus_between_windows_of_one_application)
{
    const auto first = session.makeClient({.title = "first", .content = {200, 300, 500, 350}});
    const auto second = session.makeClient({.title = "second", .content = {1000, 300, 600, 400}});
    ASSERT_TRUE(first->showFocused());
    ASSERT_TRUE(second->showFocused());
    startAround(*second);
    ASSERT_TRUE(first->focus());
    EXPECT_TRUE(waitForBorder(*first)) << log();
}

TEST_P(HighlightScene, it_follows_a_move_and_a_resize)
{
    const auto client = openFocused();
    startAround(*client);
    ASSERT_TRUE(client->moveTo(500, 350));
    EXPECT_TRUE(waitForBorder(*client)) << log();
    ASSERT_TRUE(client->resizeTo(720, 260));
    EXPECT_TRUE(waitForBorder(*client)) << log();
}

TEST_P(HighlightScene, it_follows_a_drag_by_the_title_bar_while_the_button_is_down)
{
    const auto client = openFocused();
    startAround(*client);
    ASSERT_TRUE(session.dragByTitleBar(*client, 150, 90));
    EXPECT_TRUE(waitForBorder(*client)) << log();
    session.input().release();
    EXPECT_TRUE(waitForBorder(*client)) << log();
}

TEST_P(HighlightScene, nothing_remains_after_the_window_closes)
{
    const ScreenImage empty = settled({0, 0, 1920, 1080});
    const auto client = openFocused();
    startAround(*client);
    ASSERT_TRUE(client->close());
    EXPECT_TRUE(waitForPicture(empty));
    EXPECT_TRUE(haloric->waitForNothing());
}

TEST_P(HighlightScene, nothing_remains_while_the_window_is_minimised_and_it_returns_with_the_window)
{
    const ScreenImage empty = settled({0, 0, 1920, 1080});
    const auto client = openFocused();
    startAround(*client);
    ASSERT_TRUE(client->minimise());
    EXPECT_TRUE(waitForPicture(empty));
    EXPECT_TRUE(haloric->waitForNothing());
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(waitForBorder(*client)) << log();
}

TEST_P(HighlightScene, nothing_remains_after_the_program_ends)
{
    const auto client = openFocused();
    const ScreenImage before = settled({0, 0, 1920, 1080});
    startAround(*client, R"({"pulseEnabled": false, "dimEnabled": true, "tintEnabled": true})");
    EXPECT_EQ(haloric->stop(), 0) << log();
    EXPECT_TRUE(waitForPicture(before));
}

TEST_P(HighlightScene, a_full_screen_window_keeps_its_border_by_default_and_loses_it_by_the_setting)
{
    const auto client = openFocused();
    startAround(*client);
    ASSERT_TRUE(client->setFullScreen(true));
    ASSERT_TRUE(session.observer().waitUntil([&] { return client->content() == ScreenRect{0, 0, 1920, 1080}; }));
    EXPECT_TRUE(waitForBorder(*client)) << log();
    ASSERT_EQ(haloric->stop(), 0);
    haloric = std::make_unique<HaloricProcess>(session, R"({"pulseEnabled": false, "hideWhenFullScreen": true})");
    ASSERT_TRUE(client->setFullScreen(false));
    ASSERT_TRUE(session.observer().waitUntil([&] { return client->content().width < 1920; }));
    EXPECT_TRUE(waitForBorder(*client)) << log();
    ASSERT_TRUE(client->setFullScreen(true));
    EXPECT_TRUE(haloric->waitForNothing()) << log();
}

TEST_P(HighlightScene, a_window_that_is_kept_above_others_has_its_border_while_it_has_the_focus)
{
    const auto other = openFocused({.title = "other", .content = {1000, 300, 600, 400}});
    const auto client = openFocused({.content = {200, 300, 500, 350}});
    startAround(*client);
    ASSERT_TRUE(client->setState("_NET_WM_STATE_ABOVE", true));
    ASSERT_TRUE(client->moveTo(250, 350)); // a move makes the program read the focused window again
    EXPECT_TRUE(waitForBorder(*client)) << log();
    ASSERT_TRUE(other->focus());
    EXPECT_TRUE(waitForBorder(*other)) << log();
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(waitForBorder(*client)) << log();
}

TEST_P(HighlightScene, a_pulse_runs_outward_when_the_focus_moves)
{
    constexpr int kPulseReach = 15; // the ring passes here; the border lies inside the window
    const auto first = openFocused({.title = "first", .content = {200, 300, 500, 350}});
    const auto second = openFocused({.title = "second", .content = {1000, 300, 600, 400}});
    startAround(*second, R"({"glowEnabled": false})");
    const ScreenRect frame = first->visibleFrame();
    const ScreenRect spot{frame.x - kPulseReach - 2, frame.y + frame.height / 2, 5, 1};
    const ScreenImage before = settled(spot);
    ASSERT_TRUE(first->focus());
    EXPECT_TRUE(session.waitForPixels(nameOfTest() + "-pulse", spot, [&](const ScreenImage& now) {
        return now != before;
    })) << log();
    EXPECT_TRUE(waitForPicture(before)) << "the pulse does not end";
}

} // namespace
} // namespace haloric
