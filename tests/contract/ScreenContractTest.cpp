// Changes of the screens while the program runs.
#include "contract/ScreenContract.h"

namespace haloric {
namespace {

TEST_P(ScreenContract, another_primary_screen_becomes_the_first_and_the_origin)
{
    const auto before = host->screens().all()[0].displayID;
    if (!host->makeOtherScreenPrimary())
        GTEST_SKIP() << "this desktop's screens stay as they are";

    EXPECT_TRUE(isReported());
    EXPECT_TRUE(host->waitUntil([&] { return host->screens().all().size() == 2; }));
    const auto screens = host->screens().all();
    EXPECT_EQ(screens[0].frame.origin(), Point());
    EXPECT_NE(screens[0].displayID, before);
    EXPECT_LT(screens[1].frame.x, 0);
}

TEST_P(ScreenContract, an_overlay_that_is_placed_again_follows_another_primary_screen)
{
    const auto window = shownOverlay();
    EXPECT_TRUE(isAtItsFrame(*window));
    if (!host->makeOtherScreenPrimary())
        GTEST_SKIP() << "this desktop's screens stay as they are";
    EXPECT_TRUE(isReported());

    window->setFrame(kOverlay, false);
    EXPECT_EQ(window->frame(), kOverlay);
    EXPECT_TRUE(isAtItsFrame(*window));
}

TEST_P(ScreenContract, an_overlay_that_is_placed_again_follows_another_scale)
{
    const auto window = shownOverlay();
    if (!host->setScale(2))
        GTEST_SKIP() << "this desktop's screens stay as they are";
    EXPECT_TRUE(isReported());
    EXPECT_EQ(host->screens().all()[0].backingScale, 2);

    window->setFrame(kOverlay, false);
    EXPECT_EQ(window->frame(), kOverlay);
    EXPECT_TRUE(isAtItsFrame(*window));
}

INSTANTIATE_TEST_SUITE_P(Hosts, ScreenContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
