// Which windows are listed.
#include "WindowListFixture.h"

#include <cmath>
#include <limits>

namespace haloric {
namespace {

class WindowListFilterTest : public WindowListFixture {};

TEST_F(WindowListFilterTest, only_windows_at_layer_0_are_listed)
{
    EXPECT_TRUE(listsWith(&WindowInfo::layer, std::int64_t{0}));
    for (const std::int64_t layer : {3, 25, -1})
        EXPECT_FALSE(listsWith(&WindowInfo::layer, layer)) << layer;
    EXPECT_FALSE(listsWith(&WindowInfo::layer, {}));
    EXPECT_FALSE(listsWith(&WindowInfo::layer, 0.0));
    EXPECT_FALSE(listsWith(&WindowInfo::layer, OtherWindowInfoValue{}));
}

TEST_F(WindowListFilterTest, windows_of_this_process_are_never_listed)
{
    EXPECT_FALSE(lists(window(1, kOwn)));
    EXPECT_TRUE(workspace.lookups.empty());
}

TEST_F(WindowListFilterTest, the_owner_must_be_a_signed_32_bit_integer)
{
    for (const std::int64_t owner : {std::int64_t{INT32_MAX}, std::int64_t{INT32_MIN}, std::int64_t{0}})
        EXPECT_TRUE(listsWith(&WindowInfo::ownerPID, owner)) << owner;
    for (const std::int64_t owner : {std::int64_t{INT32_MAX} + 1, std::int64_t{INT32_MIN} - 1})
        EXPECT_FALSE(listsWith(&WindowInfo::ownerPID, owner)) << owner;
    EXPECT_FALSE(listsWith(&WindowInfo::ownerPID, {}));
    EXPECT_FALSE(listsWith(&WindowInfo::ownerPID, 200.0));
}

TEST_F(WindowListFilterTest, a_window_is_skipped_only_when_its_alpha_is_a_number_that_is_not_above_zero)
{
    EXPECT_FALSE(listsWith(&WindowInfo::alpha, 0.0));
    EXPECT_FALSE(listsWith(&WindowInfo::alpha, -0.5));
    EXPECT_FALSE(listsWith(&WindowInfo::alpha, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(listsWith(&WindowInfo::alpha, 0.01));
    EXPECT_TRUE(listsWith(&WindowInfo::alpha, {}));
    EXPECT_TRUE(listsWith(&WindowInfo::alpha, std::int64_t{0})) << "an integer is a value of another type";
    EXPECT_TRUE(listsWith(&WindowInfo::alpha, OtherWindowInfoValue{}));
}

TEST_F(WindowListFilterTest, the_number_must_be_an_unsigned_32_bit_integer)
{
    EXPECT_TRUE(listsWith(&WindowInfo::number, std::int64_t{UINT32_MAX}));
    EXPECT_TRUE(listsWith(&WindowInfo::number, std::int64_t{0}));
    EXPECT_FALSE(listsWith(&WindowInfo::number, std::int64_t{UINT32_MAX} + 1));
    EXPECT_FALSE(listsWith(&WindowInfo::number, std::int64_t{-1}));
    EXPECT_FALSE(listsWith(&WindowInfo::number, {}));
    EXPECT_FALSE(listsWith(&WindowInfo::number, 1.0));
}

TEST_F(WindowListFilterTest, the_bounds_must_make_a_rectangle)
{
    EXPECT_FALSE(listsWith(&WindowInfo::bounds, {}));
    EXPECT_FALSE(listsWith(&WindowInfo::bounds, OtherWindowInfoValue{}));
    EXPECT_FALSE(listsWith(&WindowInfo::bounds, std::int64_t{5}));
}

TEST_F(WindowListFilterTest, both_sides_must_exceed_one_point)
{
    EXPECT_FALSE(lists(window(1, kEditor, {0, 0, 1, 1})));
    EXPECT_FALSE(lists(window(1, kEditor, {0, 0, 1, 500})));
    EXPECT_FALSE(lists(window(1, kEditor, {0, 0, 500, 1})));
    EXPECT_FALSE(lists(window(1, kEditor, {0, 0, std::nan(""), 500})));
    EXPECT_TRUE(lists(window(1, kEditor, {0, 0, 2, 2})));
}

TEST_F(WindowListFilterTest, bounds_that_are_not_finite_are_skipped)
{
    for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_FALSE(lists(window(1, kEditor, {bad, 0, 2, 2}))) << bad;
        EXPECT_FALSE(lists(window(1, kEditor, {0, bad, 2, 2}))) << bad;
        EXPECT_FALSE(lists(window(1, kEditor, {0, 0, bad, 2}))) << bad;
        EXPECT_FALSE(lists(window(1, kEditor, {0, 0, 2, bad}))) << bad;
    }
}

TEST_F(WindowListFilterTest, no_application_is_looked_up_for_a_window_that_is_skipped)
{
    EXPECT_FALSE(listsWith(&WindowInfo::layer, std::int64_t{3}));
    EXPECT_FALSE(listsWith(&WindowInfo::alpha, 0.0));
    EXPECT_FALSE(listsWith(&WindowInfo::number, {}));
    EXPECT_FALSE(listsWith(&WindowInfo::bounds, {}));
    EXPECT_FALSE(lists(window(1, kEditor, {0, 0, 1, 500})));
    EXPECT_TRUE(workspace.lookups.empty());
    EXPECT_TRUE(lists(window(1)));
    EXPECT_EQ(workspace.lookups.size(), 1U);
}

TEST_F(WindowListFilterTest, frames_count_from_the_upper_edge_of_a_first_screen_that_does_not_start_at_zero)
{
    screens.set({Screen{{0, -150, 1440, 900}, DisplayID{1}}});
    source.windows = {window(1)};
    EXPECT_EQ(list.onScreen().at(0).rect, (Rect{10, 530, 300, 200}));
}

} // namespace
} // namespace haloric
