#include "hosts/x11/overlay/X11OverlayStack.h"

namespace haloric {
namespace {

using Role = X11StackRole;

struct X11StackPlanTest : testing::Test {
    std::vector<std::uint32_t> overlays{90, 91};
    X11StackPlan plan(const std::vector<X11StackEntry>& children) const
    {
        return X11StackPlan::make(children, overlays);
    }
};

TEST_F(X11StackPlanTest, overlays_belong_above_the_topmost_ordinary_window)
{
    const auto made =
        plan({{1, Role::ordinary}, {2, Role::ordinary}, {3, Role::other}, {90, Role::overlay}, {91, Role::overlay}});
    EXPECT_EQ(made.anchor, 2U);
    EXPECT_FALSE(made.isInPlace);
}

TEST_F(X11StackPlanTest, a_focused_window_above_all_ordinary_ones_is_below_the_overlays)
{
    EXPECT_EQ(plan({{1, Role::ordinary}, {2, Role::focused}}).anchor, 2U);
}

TEST_F(X11StackPlanTest, an_ordinary_window_above_the_focused_one_is_below_the_overlays)
{
    EXPECT_EQ(plan({{1, Role::focused}, {2, Role::ordinary}, {3, Role::other}}).anchor, 2U);
}

TEST_F(X11StackPlanTest, overlays_in_their_order_with_panels_above_are_in_place)
{
    EXPECT_TRUE(plan({{1, Role::focused}, {90, Role::overlay}, {91, Role::overlay}, {5, Role::other}}).isInPlace);
}

TEST_F(X11StackPlanTest, overlays_in_the_wrong_order_are_not_in_place)
{
    EXPECT_FALSE(plan({{1, Role::focused}, {91, Role::overlay}, {90, Role::overlay}}).isInPlace);
}

TEST_F(X11StackPlanTest, a_window_between_the_overlays_means_that_they_are_not_in_place)
{
    EXPECT_FALSE(plan({{1, Role::focused}, {90, Role::overlay}, {5, Role::other}, {91, Role::overlay}}).isInPlace);
}

TEST_F(X11StackPlanTest, overlays_below_the_anchor_are_not_in_place)
{
    EXPECT_FALSE(plan({{90, Role::overlay}, {91, Role::overlay}, {1, Role::focused}}).isInPlace);
    EXPECT_EQ(plan({{90, Role::overlay}, {91, Role::overlay}, {1, Role::focused}}).anchor, 1U);
}

TEST_F(X11StackPlanTest, without_windows_to_be_above_there_is_no_anchor)
{
    EXPECT_EQ(plan({}).anchor, std::nullopt);
    EXPECT_EQ(plan({{90, Role::overlay}, {91, Role::overlay}, {5, Role::other}}).anchor, std::nullopt);
}

} // namespace
} // namespace haloric
