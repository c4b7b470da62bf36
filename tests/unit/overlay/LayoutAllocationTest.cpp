// A pass without a change must not allocate: the tracker causes one at display rate.
#include "unit/overlay/OverlayControllerFixture.h"

#include "support/AllocationCounter.h"

namespace haloric {
namespace {

class LayoutAllocationTest : public OverlayControllerFixture {
protected:
    LayoutAllocationTest() { toolkit.recordsCalls = false; }

    std::size_t allocationsOf(const FocusState& state)
    {
        const std::size_t before = allocationCount();
        controller->setState(state);
        return allocationCount() - before;
    }
};

TEST_F(LayoutAllocationTest, a_pass_that_reads_the_window_list_is_seen_to_allocate)
{
    edit([](Settings& s) {
        s.dimEnabled = true;
        s.dimScope = DimScope::selectedApps;
    });
    windowInfo.windows = {listed(42, kPID, kFocused)};
    EXPECT_GT(allocationsOf(focused()), 0U);
}

TEST_F(LayoutAllocationTest, a_pass_for_only_the_highlight_does_not_allocate)
{
    controller->setState(focused());
    EXPECT_EQ(allocationsOf(focused()), 0U);
}

TEST_F(LayoutAllocationTest, a_pass_with_every_window_dimmed_does_not_allocate_even_when_the_hole_moves)
{
    edit([](Settings& s) { s.dimEnabled = true; });
    controller->setState(focused());
    EXPECT_EQ(allocationsOf(focused()), 0U);
    EXPECT_EQ(allocationsOf(focused({100, 100, 310, 200})), 0U);
}

TEST_F(LayoutAllocationTest, a_pass_with_applications_dimmed_does_not_allocate_while_the_window_list_is_reused)
{
    edit([](Settings& s) {
        s.dimEnabled = true;
        s.dimScope = DimScope::selectedApps;
        s.dimApps = {"org.example.an-application-with-a-long-name", "org.example.another-one"};
    });
    windowInfo.windows = {listed(42, kPID, kFocused), listed(50, ProcessID{20}, {5, 5, 300, 300})};
    controller->setState(focused());
    EXPECT_EQ(allocationsOf(focused()), 0U);
}

TEST_F(LayoutAllocationTest, a_pass_that_hides_everything_does_not_allocate)
{
    controller->setState(FocusState::blank());
    EXPECT_EQ(allocationsOf(FocusState::blank()), 0U);
}

} // namespace
} // namespace haloric
