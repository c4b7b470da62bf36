// The tracker with a real queue thread. Meant for the thread and address sanitizers.
#include "tracking/FocusTracker.h"

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeApplication.h"
#include "fakes/FakeDisplayLinks.h"
#include "fakes/FakeInputMonitors.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeProcesses.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeWindowInfoSource.h"
#include "fakes/FakeWindowServerCalls.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/PostingRunLoop.h"
#include "fakes/ThreadedSerialQueues.h"
#include "support/JoiningThread.h"
#include "windowserver/SharedWindowServer.h"

#include <latch>
#include <thread>

namespace haloric {
namespace {

constexpr ProcessID kApplications[] = {ProcessID{7}, ProcessID{8}};

class FocusTrackerThreadTest : public testing::Test {
protected:
    FocusTrackerThreadTest()
    {
        accessibility.insideQueue = [] { return std::this_thread::get_id() != s_mainThread; };
        for (const ProcessID pid : kApplications) {
            const auto app = std::make_shared<FakeAXElement>();
            const auto window = std::make_shared<FakeAXElement>();
            window->set("AXRole", std::string("AXWindow"));
            window->set("AXPosition", Point{10, 20});
            window->set("AXSize", Size{300, 200});
            window->hash = static_cast<std::uint64_t>(pid);
            app->set("AXFocusedWindow", AXElement(window));
            accessibility.applications[pid] = app;
        }
        makeFrontmost(kApplications[0]);
    }

    void makeFrontmost(ProcessID pid) { workspace.frontmost = FrontmostApplication{pid, false}; }

    // After the tracker is destroyed its queue has finished too.
    void expectProperReleases() const
    {
        for (const auto& observer : accessibility.observers) {
            EXPECT_FALSE(observer->live);
            EXPECT_TRUE(observer->releasedInsideQueue);
            EXPECT_FALSE(observer->releasedWhileOnRunLoop);
        }
    }

    static inline const std::thread::id s_mainThread = std::this_thread::get_id();

    PostingRunLoop loop;
    ThreadedSerialQueues queues;
    FakeDisplayLinks links;
    FakeWorkspace workspace;
    FakeScreens screens{{{{0, 0, 1000, 800}, DisplayID{1}, 60, 1}}};
    FakeAccessibility accessibility;
    FakeWindowInfoSource windowInfo;
    FakeInputMonitors input;
    FakeApplication application;
    FakeWindowServerCalls library;
    FakeProcesses processes;
    FakeLog log;
    SharedWindowServer windowServer{library, processes, loop, log};
    std::optional<FocusTracker> tracker{std::in_place,
                                        FocusTrackerDependencies{loop, queues, links, workspace, screens, accessibility,
                                                                 windowInfo, input, application, windowServer}};
};

TEST_F(FocusTrackerThreadTest, it_finds_the_window_and_releases_the_observation_on_the_queue)
{
    tracker->start();
    loop.runUntil([&] { return tracker->state().frame && !tracker->isQueryInFlight(); });
    EXPECT_EQ(tracker->state().windowID, WindowIdentity{7});
    tracker.reset();
    EXPECT_EQ(accessibility.callsOutsideQueue, 0);
    ASSERT_EQ(accessibility.observers.size(), 1U);
    expectProperReleases();
}

TEST_F(FocusTrackerThreadTest, a_tracker_may_be_destroyed_while_its_query_blocks)
{
    std::latch asked(1);
    std::latch answer(1);
    accessibility.onRead = [&](std::string_view name) {
        if (name == "AXRole") {
            asked.count_down();
            answer.wait();
        }
    };
    tracker->start();
    asked.wait();
    const JoiningThread application7([&] { answer.count_down(); });
    tracker.reset(); // waits for the answer

    // The task that the query posted still runs; the tracker is gone.
    bool last = false;
    loop.post([&] { last = true; });
    loop.runUntil([&] { return last; });
    ASSERT_EQ(accessibility.observers.size(), 1U);
    EXPECT_TRUE(accessibility.observers[0]->runLoop.empty());
    expectProperReleases();
}

TEST_F(FocusTrackerThreadTest, hasty_switches_leave_one_observation_at_a_time)
{
    tracker->start();
    for (int round = 0; round < 300; ++round) {
        makeFrontmost(kApplications[round % 2]);
        workspace.announce(WorkspaceNotification::didActivateApplication);
        if (round % 3 == 0)
            loop.runUntil([&] { return tracker->state().frame && !tracker->isQueryInFlight(); });
    }
    loop.runUntil([&] { return tracker->state().frame && !tracker->isQueryInFlight(); });
    EXPECT_EQ(tracker->state().windowID, WindowIdentity{8});
    tracker.reset();
    EXPECT_EQ(accessibility.callsOutsideQueue, 0);
    EXPECT_GT(accessibility.observers.size(), 1U);
    expectProperReleases();
}

TEST_F(FocusTrackerThreadTest, a_notification_may_end_the_observation_that_delivers_it)
{
    tracker->start();
    for (int round = 0; round < 100; ++round) {
        loop.runUntil([&] { return tracker->state().frame && !tracker->isQueryInFlight(); });
        workspace.frontmost->hidden = true;
        accessibility.notify(accessibility.observers.back(), "AXApplicationHidden");
        EXPECT_EQ(tracker->state(), FocusState::blank());
        workspace.frontmost->hidden = false;
        workspace.announce(WorkspaceNotification::didActivateApplication);
    }
    tracker.reset();
    bool last = false;
    loop.post([&] { last = true; });
    loop.runUntil([&] { return last; });
    for (const auto& observer : accessibility.observers)
        EXPECT_FALSE(observer->live);
}

} // namespace
} // namespace haloric
