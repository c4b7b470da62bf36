
#include "hosts/x11/refresh/X11Screens.h"

namespace haloric {
namespace {

using testing::ElementsAre;

constexpr X11Monitor kLeft{11, false, {0, 0, 1920, 1080}, 60};
constexpr X11Monitor kRight{22, true, {1920, 0, 2560, 1440}, 144};

TEST(X11Monitor, the_primary_monitor_comes_first)
{
    EXPECT_THAT(X11Monitor::inOrder({kLeft, kRight}), ElementsAre(kRight, kLeft));
}

TEST(X11Monitor, without_a_primary_monitor_the_order_stays)
{
    X11Monitor right = kRight;
    right.primary = false;
    EXPECT_THAT(X11Monitor::inOrder({kLeft, right}), ElementsAre(kLeft, right));
}

TEST(X11Monitor, mirrored_monitors_are_one_screen)
{
    X11Monitor mirror = kRight;
    mirror.identifier = 33;
    mirror.primary = false;
    EXPECT_THAT(X11Monitor::inOrder({mirror, kLeft, kRight}), ElementsAre(kRight, kLeft));
}

TEST(X11Monitor, empty_monitors_are_left_out)
{
    EXPECT_THAT(X11Monitor::inOrder({{5, true, {0, 0, 0, 1080}, 60}, kLeft}), ElementsAre(kLeft));
    EXPECT_TRUE(X11Monitor::inOrder({}).empty());
}

TEST(X11Monitor, the_refresh_rate_follows_from_the_mode)
{
    xcb_randr_mode_info_t mode{};
    mode.dot_clock = 148'500'000;
    mode.htotal = 2200;
    mode.vtotal = 1125;
    EXPECT_DOUBLE_EQ(X11Monitor::framesPerSecondOf(mode), 60);
    mode.mode_flags = XCB_RANDR_MODE_FLAG_INTERLACE;
    EXPECT_DOUBLE_EQ(X11Monitor::framesPerSecondOf(mode), 120);
    mode.mode_flags = XCB_RANDR_MODE_FLAG_DOUBLE_SCAN;
    EXPECT_DOUBLE_EQ(X11Monitor::framesPerSecondOf(mode), 30);
}

TEST(X11Monitor, a_mode_without_figures_has_no_rate)
{
    EXPECT_EQ(X11Monitor::framesPerSecondOf({}), 0);
    xcb_randr_mode_info_t mode{};
    mode.dot_clock = 148'500'000;
    mode.htotal = 2200;
    EXPECT_EQ(X11Monitor::framesPerSecondOf(mode), 0);
}

TEST(X11Screens, a_monitor_becomes_a_screen_in_points)
{
    const X11Space space{2, kRight.frame};
    EXPECT_EQ(X11Screens::describe(kRight, space), (Screen{{0, 0, 1280, 720}, DisplayID{22}, 144, 2}));
    EXPECT_EQ(X11Screens::describe(kLeft, space), (Screen{{-960, 180, 960, 540}, DisplayID{11}, 60, 2}));
}

TEST(X11Screens, a_monitor_that_does_not_tell_its_rate_has_the_usual_one)
{
    X11Monitor silent = kLeft;
    silent.framesPerSecond = 0;
    EXPECT_EQ(X11Screens::describe(silent, {1, silent.frame}).maximumFramesPerSecond, 60);
}

} // namespace
} // namespace haloric
