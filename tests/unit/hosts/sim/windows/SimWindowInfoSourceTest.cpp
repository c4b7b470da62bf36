#include "hosts/sim/windows/SimWindowInfoSource.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimWindowInfoSource, reads_can_fail_for_a_while)
{
    SimDesktopFixture fixture;
    fixture.addOverlay({10, 680, 300, 200}).layer = 3;
    SimWindowInfoSource source(fixture.desktop);
    fixture.desktop.faults.missingWindowLists = 1;

    EXPECT_FALSE(source.copyWindowInfo(WindowListOptions::onScreenOnly, WindowNumber::none));
    const auto list = source.copyWindowInfo(WindowListOptions::onScreenOnly, WindowNumber::none);
    ASSERT_TRUE(list);
    ASSERT_EQ(list->size(), 1u);
    EXPECT_EQ(list->front().layer, WindowInfoValue(std::int64_t{3}));
}

} // namespace
} // namespace haloric
