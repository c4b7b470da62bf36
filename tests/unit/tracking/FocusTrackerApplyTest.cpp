#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class FocusTrackerApplyTest : public FocusTrackerFixture {};

TEST_F(FocusTrackerApplyTest, the_window_is_confirmed_in_the_list_and_watched)
{
    start();
    EXPECT_THAT(windowInfo.calls, Contains(FakeWindowInfoSource::Call{WindowListOptions::includingWindow, kWindow}));
    EXPECT_EQ(tracker->currentWindowID(), kWindow);
    EXPECT_THAT(library.requestedWindows(), ElementsAre(kWindow));
    EXPECT_EQ(tracker->state(),
              (FocusState{Rect{100, 400, 400, 300}, kEditor, identityOf(kWindow), FocusState::TitleBar::height(28)}));
}

TEST_F(FocusTrackerApplyTest, the_watch_is_requested_only_when_the_window_changes)
{
    start();
    const auto requests = library.callCount("SLSRequestNotificationsForWindows");
    poll();
    poll();
    EXPECT_EQ(library.callCount("SLSRequestNotificationsForWindows"), requests);
}

TEST_F(FocusTrackerApplyTest, an_application_without_a_window_is_cleared)
{
    start();
    journal.clear();
    focusNothing(kEditor);
    poll();
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
}

TEST_F(FocusTrackerApplyTest, an_unresponsive_application_keeps_its_highlight_while_its_window_is_watched)
{
    start();
    journal.clear();
    stopAnswering(kEditor);
    poll();
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_EQ(tracker->currentWindowID(), kWindow);
}

TEST_F(FocusTrackerApplyTest, an_unresponsive_application_whose_window_is_not_watched_is_cleared)
{
    editorWindow->number = {AXError::failure, WindowNumber::none};
    start();
    journal.clear();
    stopAnswering(kEditor);
    poll();
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
}

TEST_F(FocusTrackerApplyTest, a_result_for_an_application_that_is_frontmost_no_more_makes_a_refresh)
{
    startUntilResultIsUnderWay();
    makeFrontmost(kMail); // not notified yet
    deliverResult();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 8"));
    run();
    EXPECT_THAT(journal, ElementsAre("8/50 500,400 300x200", "pulse"));
}

TEST_F(FocusTrackerApplyTest, a_result_for_a_hidden_or_terminated_application_blanks_the_state)
{
    startUntilResultIsUnderWay();
    workspace.frontmost->hidden = true;
    deliverResult();
    EXPECT_THAT(takeJournal(), ElementsAre("blank"));
    run();

    makeFrontmost(kEditor);
    askForRefresh();
    loop.runNext();
    journal.clear();
    workspace.frontmost.reset();
    deliverResult();
    EXPECT_THAT(journal, ElementsAre("blank"));
}

TEST_F(FocusTrackerApplyTest, a_new_frame_starts_fast_tracking_and_the_same_one_does_not)
{
    start();
    leaveFastTracking();
    poll();
    EXPECT_FALSE(tracker->isFastTracking());
    place(kWindow, {120, 100, 400, 300});
    poll();
    EXPECT_TRUE(tracker->isFastTracking());
}

TEST_F(FocusTrackerApplyTest, an_equal_state_is_not_published_again)
{
    start();
    journal.clear();
    poll();
    poll();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerApplyTest, a_change_of_only_the_title_bar_is_published)
{
    editorWindow->fail("AXCloseButton", AXError::cannotComplete);
    start();
    EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::unknown());
    journal.clear();
    editorWindow->fail("AXCloseButton", AXError::noValue);
    poll();
    EXPECT_THAT(journal, ElementsAre("7/42 100,400 400x300"));
    EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::none());
}

} // namespace
} // namespace haloric
