#include "unit/tracking/FocusTrackerFixture.h"

#include <cmath>

namespace haloric {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class FocusTrackerFrameTest : public FocusTrackerFixture {
protected:
    // Then only Accessibility reports the window.
    void hideNumber() { editorWindow->number = {AXError::failure, WindowNumber::none}; }
};

TEST_F(FocusTrackerFrameTest, the_window_server_s_frame_is_preferred_to_the_list_s)
{
    info(kWindow).bounds = Rect{0, 0, 50, 50};
    start();
    EXPECT_EQ(describe(tracker->state()), "7/42 100,400 400x300");
    journal.clear();
    library.bounds.erase(kWindow);
    poll();
    EXPECT_THAT(journal, ElementsAre("7/42 0,750 50x50"));
}

TEST_F(FocusTrackerFrameTest, a_window_without_any_frame_is_not_published)
{
    library.bounds.erase(kWindow);
    info(kWindow).bounds = OtherWindowInfoValue{};
    start();
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
}

TEST_F(FocusTrackerFrameTest, a_window_of_another_layer_is_not_highlighted)
{
    start();
    journal.clear();
    for (const WindowInfoValue& layer : {WindowInfoValue(std::int64_t{3}), WindowInfoValue(0.0), WindowInfoValue()}) {
        info(kWindow).layer = layer;
        poll();
        EXPECT_THAT(takeJournal(), ElementsAre("cleared 7"));
        EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
        info(kWindow).layer = std::int64_t{0};
        poll();
        EXPECT_THAT(takeJournal(), ElementsAre("7/42 100,400 400x300"));
    }
}

TEST_F(FocusTrackerFrameTest, a_window_of_another_owner_is_not_highlighted)
{
    for (const WindowInfoValue& owner : {WindowInfoValue(std::int64_t{8}), WindowInfoValue(7.0), WindowInfoValue()}) {
        info(kWindow).ownerPID = owner;
        poll();
        start();
        EXPECT_THAT(takeJournal(), Contains("cleared 7"));
        EXPECT_EQ(tracker->state().frame, std::nullopt);
        tracker->stop();
    }
}

TEST_F(FocusTrackerFrameTest, a_window_that_the_list_lacks_is_not_highlighted)
{
    windowInfo.windows->clear();
    start();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 7"));
    windowInfo.windows.reset();
    poll();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerFrameTest, a_frame_of_one_point_is_no_window)
{
    dropWindowServer(); // whose own bound is the same
    place(kWindow, {100, 100, 1, 400});
    start();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 7"));
    place(kWindow, {100, 100, 400, 1});
    poll();
    EXPECT_THAT(takeJournal(), IsEmpty());
    place(kWindow, {100, 100, 2, 2});
    poll();
    EXPECT_THAT(takeJournal(), ElementsAre("7/42 100,698 2x2", "pulse"));
}

TEST_F(FocusTrackerFrameTest, a_window_without_a_number_is_placed_by_accessibility_and_not_watched)
{
    hideNumber();
    start();
    EXPECT_THAT(journal, ElementsAre("cleared 7", "7/1042 100,400 400x300", "pulse"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
    EXPECT_THAT(library.requestedWindows(), IsEmpty());
    EXPECT_THAT(windowInfo.calls, IsEmpty());
}

TEST_F(FocusTrackerFrameTest, a_window_without_a_number_and_without_bounds_is_not_published)
{
    start();
    journal.clear();
    hideNumber();
    editorWindow->fail("AXSize", AXError::failure);
    poll();
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
    EXPECT_EQ(tracker->currentWindowID(), WindowNumber::none);
}

TEST_F(FocusTrackerFrameTest, a_narrow_window_without_a_number_is_not_published)
{
    hideNumber();
    editorWindow->set("AXSize", Size{1, 400});
    start();
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
}

TEST_F(FocusTrackerFrameTest, without_a_screen_there_is_no_frame)
{
    start();
    screens.set({});
    journal.clear();
    poll();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 7"));
    hideNumber();
    poll();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerFrameTest, numbers_of_the_window_server_and_its_list_that_are_not_finite_make_no_frame)
{
    for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        place(kWindow, {bad, 100, 400, 300});
        tracker->stop();
        start();
        EXPECT_EQ(tracker->state(), FocusState::cleared(kEditor)) << bad;
        place(kWindow, {100, bad, 400, 300});
        poll();
        EXPECT_EQ(tracker->state().frame, std::nullopt) << bad;
        place(kWindow, {100, 100, 400, bad});
        poll();
        EXPECT_EQ(tracker->state().frame, std::nullopt) << bad;
    }
}

TEST_F(FocusTrackerFrameTest, numbers_of_accessibility_that_are_not_finite_make_no_frame)
{
    hideNumber();
    editorWindow->set("AXPosition", Point{HUGE_VAL, 100});
    start();
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
    editorWindow->set("AXPosition", Point{100, 100});
    editorWindow->set("AXSize", Size{400, std::nan("")});
    poll();
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
}

TEST_F(FocusTrackerFrameTest, a_screen_that_is_not_finite_makes_no_frame)
{
    screens.set({{{0, 0, 1000, HUGE_VAL}, DisplayID{1}, 60, 1}});
    start();
    EXPECT_THAT(journal, ElementsAre("cleared 7"));
}

} // namespace
} // namespace haloric
