// A display frame in which nothing changes must not allocate.
#include "fakes/SilentWindowServerCalls.h"
#include "support/AllocationCounter.h"
#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

class TickAllocationTest : public FocusTrackerFixture {
protected:
    std::size_t allocationsOfFrames()
    {
        const auto before = allocationCount();
        for (int frame = 0; frame < 100; ++frame)
            links.frame();
        return allocationCount() - before;
    }

    SilentWindowServerCalls silent;
};

TEST_F(TickAllocationTest, an_allocation_would_be_counted)
{
    const auto before = allocationCount();
    const auto forced = std::make_unique<std::string>(100, 'x');
    EXPECT_EQ(allocationCount() - before, 2U);
}

TEST_F(TickAllocationTest, a_frame_in_which_the_window_rests_allocates_nothing)
{
    tracker.reset();
    windowServer.emplace(silent, processes, loop, log);
    makeTrackerOnly();
    start();
    ASSERT_TRUE(tracker->isFastTracking());
    ASSERT_EQ(tracker->currentWindowID(), kWindow);
    const auto queries = windowInfo.calls.size();
    EXPECT_EQ(allocationsOfFrames(), 0U);
    EXPECT_EQ(windowInfo.calls.size(), queries) << "the window server answered";
    EXPECT_TRUE(tracker->isFastTracking());

    int changes = 0;
    tracker->onChange = [&](const FocusState&) { ++changes; };
    silent.bounds.x += 1;
    EXPECT_EQ(allocationsOfFrames(), 0U) << "nor does the tracker for a window that moves on its screen";
    EXPECT_EQ(changes, 1);
}

TEST_F(TickAllocationTest, a_frame_without_a_window_allocates_nothing)
{
    focusNothing(kEditor);
    start();
    ASSERT_TRUE(tracker->isFastTracking());
    EXPECT_EQ(allocationsOfFrames(), 0U);
}

TEST_F(TickAllocationTest, a_frame_while_its_own_window_has_focus_allocates_nothing)
{
    application.key = OwnWindow{{300, 200, 420, 560}, 532, 5, true, false};
    makeFrontmost(kOwn);
    start();
    ASSERT_TRUE(tracker->isFastTracking());
    EXPECT_EQ(allocationsOfFrames(), 0U);
}

TEST_F(TickAllocationTest, a_refresh_without_an_application_to_query_allocates_nothing)
{
    accessibility.trusted = false;
    start();
    input.sendGlobal(EventType::leftMouseDown); // so that the next frame finds a release, and refreshes
    EXPECT_EQ(allocationsOfFrames(), 0U);
}

} // namespace
} // namespace haloric
