#include "tracking/AXObservation.h"

#include "fakes/FakeAccessibility.h"

#include <memory>

namespace haloric {
namespace {

using testing::Each;
using testing::ElementsAre;

class AXObservationTest : public testing::Test {
protected:
    static constexpr ProcessID kPid{7};

    std::unique_ptr<AXObservation> make() { return AXObservation::make(accessibility, kPid, app); }

    FakeAccessibility accessibility;
    AXElement app = std::make_shared<FakeAXElement>();
};

TEST_F(AXObservationTest, it_registers_the_eleven_notifications_of_the_application_in_order)
{
    const auto observation = make();
    const auto& observer = *accessibility.observers.at(0);
    EXPECT_EQ(observer.pid, kPid);
    EXPECT_THAT(observer.notifications,
                ElementsAre("AXFocusedWindowChanged", "AXMainWindowChanged", "AXWindowMoved", "AXWindowResized",
                            "AXWindowMiniaturized", "AXWindowDeminiaturized", "AXWindowCreated", "AXUIElementDestroyed",
                            "AXApplicationHidden", "AXApplicationShown", "AXFocusedUIElementChanged"));
    EXPECT_THAT(observer.elements, Each(app));
}

TEST_F(AXObservationTest, without_an_observer_no_observation_is_made)
{
    accessibility.refusesObservers = true;
    EXPECT_EQ(make(), nullptr);
}

TEST_F(AXObservationTest, a_refused_notification_leaves_the_others)
{
    accessibility.refusedNotifications["AXWindowMoved"] = AXError::notificationUnsupported;
    EXPECT_NE(make(), nullptr);
    EXPECT_EQ(accessibility.observers.at(0)->notifications.size(), 10U);
    EXPECT_EQ(accessibility.observers.at(0)->notifications.back(), "AXFocusedUIElementChanged");
}

TEST_F(AXObservationTest, names_that_cannot_be_completed_are_added_again_in_order_until_they_are_in)
{
    const auto& refused = accessibility.refusedNotifications;
    for (const char* name : {"AXWindowMoved", "AXWindowResized", "AXWindowCreated"})
        accessibility.refusedNotifications[name] = AXError::cannotComplete;
    const auto observation = make();
    const auto& added = accessibility.observers.at(0)->notifications;
    ASSERT_EQ(added.size(), 8U);

    observation->addMissing(app);
    EXPECT_EQ(added.size(), 8U) << "it is not ready yet";
    accessibility.refusedNotifications.erase(refused.find("AXWindowMoved"));
    observation->addMissing(app);
    EXPECT_EQ(added.size(), 9U) << "the second of the three cannot be completed";
    accessibility.refusedNotifications.clear();
    observation->addMissing(app);
    observation->addMissing(app);
    EXPECT_THAT(std::vector(added.begin() + 8, added.end()),
                ElementsAre("AXWindowMoved", "AXWindowResized", "AXWindowCreated"));
    EXPECT_THAT(accessibility.observers.at(0)->elements, Each(app));
}

TEST_F(AXObservationTest, a_name_that_was_refused_is_not_added_again)
{
    for (const AXError error : {AXError::notificationUnsupported, AXError::failure, AXError::invalidElement}) {
        accessibility.refusedNotifications["AXWindowMoved"] = error;
        const auto observation = make();
        accessibility.refusedNotifications.clear();
        observation->addMissing(app);
        EXPECT_EQ(accessibility.observers.back()->notifications.size(), 10U);
    }
}

TEST_F(AXObservationTest, a_notification_reaches_the_handler_by_name)
{
    const auto observation = make();
    std::vector<std::string> heard;
    observation->onNotification = [&](std::string_view name) { heard.emplace_back(name); };
    observation->addToMainRunLoop();
    accessibility.notify(accessibility.observers.at(0), "AXWindowMoved");
    EXPECT_THAT(heard, ElementsAre("AXWindowMoved"));
}

TEST_F(AXObservationTest, a_notification_without_a_handler_is_ignored)
{
    const auto observation = make();
    observation->addToMainRunLoop();
    accessibility.notify(accessibility.observers.at(0), "AXWindowMoved");
}

TEST_F(AXObservationTest, the_handler_may_have_the_observation_released)
{
    auto observation = make();
    int calls = 0;
    observation->onNotification = [&observation, &calls, guard = std::make_shared<int>(1)](std::string_view) {
        observation->removeFromMainRunLoop();
        observation.reset();
        calls += *guard; // the handler itself is still whole
    };
    observation->addToMainRunLoop();
    accessibility.notify(accessibility.observers.at(0), "AXApplicationHidden");
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(accessibility.observers.at(0)->live);
}

TEST_F(AXObservationTest, releasing_it_releases_the_observer)
{
    auto observation = make();
    EXPECT_TRUE(accessibility.observers.at(0)->live);
    observation.reset();
    EXPECT_FALSE(accessibility.observers.at(0)->live);
}

} // namespace
} // namespace haloric
