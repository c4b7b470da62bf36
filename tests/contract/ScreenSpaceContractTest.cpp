// Overlays that nothing places again while the screens change.
#include "contract/ScreenContract.h"

namespace haloric {
namespace {

class ScreenSpaceContract : public ScreenContract {};

TEST_P(ScreenSpaceContract, an_overlay_is_where_its_frame_says_after_another_screen_became_primary)
{
    const auto window = shownOverlay();
    if (!host->makeOtherScreenPrimary())
        GTEST_SKIP() << "this desktop's screens stay as they are";

    EXPECT_TRUE(isReported());
    EXPECT_TRUE(isAtItsFrame(*window));
}

TEST_P(ScreenSpaceContract, an_overlay_is_where_its_frame_says_after_the_scale_changed)
{
    const auto window = shownOverlay();
    if (!host->setScale(2))
        GTEST_SKIP() << "this desktop's screens stay as they are";

    EXPECT_TRUE(isReported());
    EXPECT_TRUE(isAtItsFrame(*window));
}

INSTANTIATE_TEST_SUITE_P(Hosts, ScreenSpaceContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
