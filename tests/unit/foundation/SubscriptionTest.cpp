#include "foundation/Subscription.h"

namespace haloric {
namespace {

TEST(SubscriptionTest, cancels_when_it_is_destroyed)
{
    int cancelled = 0;
    {
        const Subscription subscription([&] { ++cancelled; });
        EXPECT_EQ(cancelled, 0);
    }
    EXPECT_EQ(cancelled, 1);
}

TEST(SubscriptionTest, cancels_once_when_it_is_reset_and_then_destroyed)
{
    int cancelled = 0;
    {
        Subscription subscription([&] { ++cancelled; });
        subscription.reset();
        EXPECT_FALSE(subscription);
    }
    EXPECT_EQ(cancelled, 1);
}

TEST(SubscriptionTest, moving_hands_the_duty_over)
{
    int cancelled = 0;
    Subscription first([&] { ++cancelled; });
    {
        const Subscription second = std::move(first);
        EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move): moved-from handles are empty by contract
        EXPECT_EQ(cancelled, 0);
    }
    EXPECT_EQ(cancelled, 1);
}

TEST(SubscriptionTest, assignment_cancels_what_was_held_before)
{
    int firstCancelled = 0;
    int secondCancelled = 0;
    Subscription held([&] { ++firstCancelled; });
    held = Subscription([&] { ++secondCancelled; });
    EXPECT_EQ(firstCancelled, 1);
    EXPECT_EQ(secondCancelled, 0);
}

} // namespace
} // namespace haloric
