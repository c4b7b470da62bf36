#include "unit/tracking/FocusTrackerFixture.h"

#include <cmath>

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const OwnWindow kSettings{{300, 200, 420, 560}, 532, 5, true, false};

class FocusTrackerOwnWindowTest : public FocusTrackerFixture {
protected:
    FocusTrackerOwnWindowTest()
    {
        start();
        journal.clear();
        application.key = kSettings;
    }
};

TEST_F(FocusTrackerOwnWindowTest, its_own_key_window_is_found_without_accessibility)
{
    const auto calls = accessibility.calls.size();
    activate(kOwn);
    EXPECT_THAT(journal, ElementsAre("blank", "cleared 1", "1/5 300,200 420x560", "pulse"));
    EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::height(28));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    EXPECT_FALSE(tracker->isQueryInFlight());
    run();
    EXPECT_EQ(accessibility.calls.size(), calls + 1) << "the old observation's release";
}

TEST_F(FocusTrackerOwnWindowTest, the_main_window_stands_in_for_the_key_window)
{
    application.main = std::exchange(application.key, std::nullopt);
    activate(kOwn);
    EXPECT_EQ(describe(tracker->state()), "1/5 300,200 420x560");
}

TEST_F(FocusTrackerOwnWindowTest, without_a_window_it_is_cleared)
{
    application.key.reset();
    activate(kOwn);
    EXPECT_THAT(journal, ElementsAre("blank", "cleared 1"));
}

TEST_F(FocusTrackerOwnWindowTest, an_overlay_and_an_invisible_window_do_not_count)
{
    application.main = kSettings; // which no key window leaves room for
    application.key->overlay = true;
    activate(kOwn);
    EXPECT_THAT(takeJournal(), ElementsAre("blank", "cleared 1"));
    application.key = kSettings;
    application.key->visible = false;
    poll();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerOwnWindowTest, a_title_bar_of_at_most_one_point_counts_as_absent)
{
    application.key->contentLayoutHeight = 559;
    activate(kOwn);
    EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::none());
    application.key->contentLayoutHeight = 558.5;
    poll();
    EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::height(1.5));
}

TEST_F(FocusTrackerOwnWindowTest, each_frame_follows_it)
{
    activate(kOwn);
    journal.clear();
    application.key->frame.x = 310;
    links.frame();
    EXPECT_THAT(journal, ElementsAre("1/5 310,200 420x560"));
}

TEST_F(FocusTrackerOwnWindowTest, another_own_window_does_not_pulse)
{
    activate(kOwn);
    journal.clear();
    application.key->number = 6;
    poll();
    EXPECT_THAT(journal, ElementsAre("1/6 300,200 420x560"));
}

TEST_F(FocusTrackerOwnWindowTest, the_watch_on_another_applications_window_ends)
{
    EXPECT_EQ(tracker->currentWindowID(), kWindow);
    makeFrontmost(kOwn);
    askForRefresh();
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    EXPECT_THAT(journal, ElementsAre("cleared 1", "1/5 300,200 420x560"));
}

TEST_F(FocusTrackerOwnWindowTest, a_frame_that_is_not_finite_counts_as_no_window)
{
    application.key->frame.x = std::nan("");
    activate(kOwn);
    EXPECT_THAT(journal, ElementsAre("blank", "cleared 1"));
}

TEST_F(FocusTrackerOwnWindowTest, a_content_height_that_is_not_finite_leaves_the_title_bar_unknown)
{
    for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        application.key->contentLayoutHeight = bad;
        activate(kOwn);
        EXPECT_EQ(tracker->state().titleBar, FocusState::TitleBar::unknown());
    }
}

} // namespace
} // namespace haloric
