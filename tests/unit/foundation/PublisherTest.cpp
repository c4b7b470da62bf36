#include "foundation/Publisher.h"

#include <vector>

namespace haloric {
namespace {

TEST(PublisherTest, delivers_in_the_order_of_subscription)
{
    Publisher<int> publisher;
    std::vector<int> heard;
    const auto first = publisher.subscribe([&](int value) { heard.push_back(value); });
    const auto second = publisher.subscribe([&](int value) { heard.push_back(value * 10); });
    publisher.publish(7);
    EXPECT_EQ(heard, (std::vector{7, 70}));
}

TEST(PublisherTest, a_cancelled_handler_is_not_called_even_when_cancelled_during_the_delivery)
{
    Publisher<> publisher;
    int heard = 0;
    Subscription second;
    const auto first = publisher.subscribe([&] { second.reset(); });
    second = publisher.subscribe([&] { ++heard; });
    publisher.publish();
    EXPECT_EQ(heard, 0);
}

TEST(PublisherTest, a_handler_may_cancel_itself_while_it_runs)
{
    Publisher<> publisher;
    int heard = 0;
    Subscription self;
    self = publisher.subscribe([&] {
        self.reset();
        ++heard; // the captures are still alive
    });
    publisher.publish();
    publisher.publish();
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(publisher.subscriberCount(), 0U);
}

TEST(PublisherTest, a_handler_that_subscribes_during_a_delivery_is_called_by_the_next_one)
{
    Publisher<> publisher;
    int late = 0;
    Subscription lateSubscription;
    const auto first = publisher.subscribe([&] {
        if (!lateSubscription)
            lateSubscription = publisher.subscribe([&] { ++late; });
    });
    publisher.publish();
    EXPECT_EQ(late, 0);
    publisher.publish();
    EXPECT_EQ(late, 1);
}

TEST(PublisherTest, a_subscription_may_outlive_its_publisher)
{
    Subscription subscription;
    {
        Publisher<> publisher;
        subscription = publisher.subscribe([] {});
    }
    subscription.reset();
}

} // namespace
} // namespace haloric
