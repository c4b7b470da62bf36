// Callbacks that end their own registration, of every kind: the callback that runs keeps what it has captured, and is
// not called again.
#include "contract/EndingItself.h"
#include "contract/HostContract.h"
#include "platform/AccessibilityNames.h"
#include "platform/DisplayLinks.h"
#include "platform/InputMonitors.h"
#include "platform/Screens.h"
#include "platform/VideoLinks.h"
#include "platform/Workspace.h"

#include <thread>

namespace haloric {
namespace {

class RegistrationContract : public HostContract {
protected:
    void expectOneCall()
    {
        EXPECT_TRUE(host->waitUntil([&] { return ending.calls > 0; }));
        EXPECT_TRUE(ending.keepsCaptures);
    }

    void expectNoFurtherCall()
    {
        host->turnFor(Seconds(0.1));
        EXPECT_EQ(ending.calls, 1);
    }

    EndingItself ending;
    Subscription registration;
};

TEST_P(RegistrationContract, a_timer_that_fires_once_may_end_itself)
{
    ending.end = [&] { registration.reset(); };
    registration = host->runLoop().scheduleOnce(Seconds(0.01), ending.callback());

    expectOneCall();
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, a_repeating_timer_may_end_itself)
{
    ending.end = [&] { registration.reset(); };
    registration = host->runLoop().scheduleRepeating(Seconds(0.01), Seconds(0), ending.callback());

    expectOneCall();
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, a_timer_may_replace_itself)
{
    int later = 0;
    ending.end = [&] { registration = host->runLoop().scheduleOnce(Seconds(0.01), [&] { ++later; }); };
    registration = host->runLoop().scheduleRepeating(Seconds(0.01), Seconds(0), ending.callback());

    expectOneCall();
    EXPECT_TRUE(host->waitUntil([&] { return later == 1; }));
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, a_timer_may_end_another_that_is_due_at_the_same_time)
{
    int cancelled = 0;
    Subscription other;
    ending.end = [&] { other.reset(); };
    registration = host->runLoop().scheduleOnce(Seconds(0.02), ending.callback());
    other = host->runLoop().scheduleOnce(Seconds(0.02), [&] { ++cancelled; });

    expectOneCall();
    expectNoFurtherCall();
    EXPECT_EQ(cancelled, 0);
}

TEST_P(RegistrationContract, a_posted_task_may_end_a_timer_that_is_due)
{
    int fired = 0;
    registration = host->runLoop().scheduleOnce(Seconds(0), [&] { ++fired; });
    registration.reset();
    ending.end = [&] { registration.reset(); };
    host->runLoop().post(ending.callback());
    registration = host->runLoop().scheduleOnce(Seconds(0.01), [&] { ++fired; });

    expectOneCall();
    expectNoFurtherCall();
    EXPECT_EQ(fired, 0);
}

TEST_P(RegistrationContract, an_observer_of_activations_may_end_itself)
{
    const ContractWindow first = host->openWindow(kFrame);
    const ContractWindow second = host->openWindow(kOtherFrame);
    host->turnFor(Seconds(0.1));
    ending.end = [&] { registration.reset(); };
    registration = host->workspace().observe(WorkspaceNotification::didActivateApplication, ending.callback());

    host->focus(first);
    expectOneCall();
    host->focus(second);
    EXPECT_TRUE(host->waitUntil([&] { return host->workspace().frontmostApplication()->pid == second.pid; }));
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, an_observer_of_ended_applications_may_end_itself)
{
    const ContractWindow first = host->openWindow(kFrame);
    const ContractWindow second = host->openWindow(kOtherFrame);
    ending.end = [&] { registration.reset(); };
    registration = host->workspace().observe(WorkspaceNotification::didTerminateApplication, ending.callback());

    host->close(first);
    expectOneCall();
    int ended = 0;
    const Subscription other =
        host->workspace().observe(WorkspaceNotification::didTerminateApplication, [&] { ++ended; });
    host->close(second);
    EXPECT_TRUE(host->waitUntil([&] { return ended == 1; }));
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, an_observer_of_the_screens_may_end_itself)
{
    ending.end = [&] { registration.reset(); };
    registration = host->screens().onParametersChange(ending.callback());

    if (!host->setScale(2))
        GTEST_SKIP() << "this desktop's screens stay as they are";
    expectOneCall();
    ASSERT_TRUE(host->setScale(1));
    EXPECT_TRUE(host->waitUntil([&] { return host->screens().all()[0].backingScale == 1; }));
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, a_mouse_monitor_may_end_itself)
{
    host->openWindow(kFrame);
    ending.end = [&] { registration.reset(); };
    registration = host->input().addGlobalMouseMonitor(maskOf(EventType::leftMouseDown),
                                                       [call = ending.callback()](EventType) { call(); });

    for (int press = 0; press < 2; ++press) {
        host->pressButton();
        expectOneCall();
        host->releaseButton();
    }
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, an_event_tap_may_be_released_in_its_handler)
{
    host->openWindow(kFrame);
    std::unique_ptr<EventTap> tap;
    ending.end = [&] { tap.reset(); };
    tap = host->input().createEventTap({.mask = maskOf(EventType::leftMouseUp)},
                                       [call = ending.callback()](const TapEvent&) { call(); });
    ASSERT_TRUE(tap);
    tap->addToMainRunLoop();
    tap->enable();

    for (int press = 0; press < 2; ++press) {
        host->pressButton();
        host->releaseButton();
        expectOneCall();
    }
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, a_screen_link_may_be_invalidated_in_its_tick)
{
    if (!host->makesLinksFromScreens())
        GTEST_SKIP() << "this system makes links from display numbers";
    std::unique_ptr<ScreenDisplayLink> link;
    ending.end = [&] { link->invalidate(); };
    link = host->displayLinks().makeScreenLink(host->screens().all()[0], ending.callback());
    link->addToMainRunLoop();

    expectOneCall();
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, a_screen_link_may_be_released_in_its_tick)
{
    if (!host->makesLinksFromScreens())
        GTEST_SKIP() << "this system makes links from display numbers";
    std::unique_ptr<ScreenDisplayLink> link;
    ending.end = [&] { link.reset(); };
    link = host->displayLinks().makeScreenLink(host->screens().all()[0], ending.callback());
    link->addToMainRunLoop();

    expectOneCall();
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, a_data_add_source_may_be_cancelled_and_released_in_its_handler)
{
    if (!host->videoLinks())
        return;
    std::shared_ptr<DataAddSource> source;
    ending.end = [&] {
        source->cancel();
        source.reset();
    };
    source = host->videoLinks()->makeDataAddSource(ending.callback());
    source->resume();
    source->add(1);

    expectOneCall();
    expectNoFurtherCall();
}

TEST_P(RegistrationContract, an_accessibility_observer_may_be_released_while_it_delivers)
{
    const ContractWindow window = host->openWindow(kFrame);
    const auto queue = host->serialQueues().make("com.kestrow.haloric.contract.release", QualityOfService::utility);
    std::unique_ptr<AXObserver> observer;
    std::atomic<bool> released = false;
    ending.end = [&] {
        observer->removeFromMainRunLoop();
        queue->async([&] {
            observer.reset();
            released = true;
        });
        EXPECT_TRUE(host->waitUntil([&] { return released.load(); })); // the callback has not returned yet
    };
    onQueue([&] {
        const AXElement application = host->accessibility().createApplicationElement(window.pid);
        observer =
            host->accessibility().createObserver(window.pid, [call = ending.callback()](std::string_view) { call(); });
        ASSERT_TRUE(observer);
        observer->addNotification(application, AXNotifications::kWindowMoved);
    });
    ASSERT_TRUE(observer);
    observer->addToMainRunLoop();

    host->move(window, {260, 180});
    expectOneCall();
    host->move(window, {300, 220});
    EXPECT_TRUE(host->waitUntil([&] { return host->frameOf(window)->origin() == Point(300, 220); }));
    expectNoFurtherCall();
}

INSTANTIATE_TEST_SUITE_P(Hosts, RegistrationContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
