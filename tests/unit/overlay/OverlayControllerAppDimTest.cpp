// Dimming of the windows of selected applications.
#include "unit/overlay/OverlayControllerFixture.h"

namespace haloric {
namespace {

using Items = std::vector<AppDimView::Window>;

constexpr ProcessID kSelectedPID{20};
constexpr ProcessID kOtherPID{30};
constexpr ProcessID kNamelessPID{40};
constexpr Rect kSelectedRect{500, 300, 200, 150};
constexpr Rect kOtherRect{600, 350, 200, 150};

class OverlayControllerAppDimTest : public OverlayControllerFixture {
protected:
    OverlayControllerAppDimTest()
    {
        workspace.bundleIdentifiers = {
            {kPID, "org.example.focused"}, {kSelectedPID, "org.example.selected"}, {kOtherPID, "org.example.other"}};
        edit([](Settings& s) {
            s.dimEnabled = true;
            s.dimScope = DimScope::selectedApps;
            s.dimApps = {"org.example.selected", "org.example.focused"};
        });
        // Front to back, as the system lists them.
        windowInfo.windows = {listed(42, kPID, kFocused), listed(60, kOtherPID, kOtherRect),
                              listed(50, kSelectedPID, kSelectedRect)};
    }

    const Items& items(std::size_t screen = 0) const { return controller->appDimViews()[screen]->windows; }

    // How the entry of the focused application's window is dimmed, when the list has `rect` for it.
    AppDimView::Window focusedItem(const Rect& rect, std::uint32_t listedID, ProcessID owner, std::uint64_t stateID)
    {
        windowInfo.windows = {listed(listedID, owner, rect)};
        runLoop.runFor(Seconds(0.11)); // the last snapshot is too old now
        controller->setState(focused(kFocused, stateID));
        EXPECT_EQ(items().size(), 2U);
        return items().front();
    }
};

TEST_F(OverlayControllerAppDimTest, dims_the_selected_and_clears_what_lies_in_front_and_the_focused_window_last)
{
    controller->setState(focused());
    EXPECT_EQ(items(), (Items{{kSelectedRect, true}, {kOtherRect, false}, {kFocused, false}, {kFocused, false}}));
    EXPECT_EQ(appDim(0)->frame, kPrimary.frame);
    EXPECT_EQ(appDim(1)->frame, kSecondary.frame);
    EXPECT_FALSE(appDim(0)->displayedBySetFrame);
    EXPECT_EQ(items(1).front(), (AppDimView::Window{kSelectedRect.translatedBy(-1000, -100), true}));
    EXPECT_TRUE(isOnTop(highlight()));
}

TEST_F(OverlayControllerAppDimTest, an_entry_without_an_identifier_is_never_dimmed)
{
    edit([](Settings& s) { s.dimApps.emplace_back(); });
    windowInfo.windows = {listed(50, kNamelessPID, kSelectedRect)};
    controller->setState(focused());
    EXPECT_EQ(items(), (Items{{kSelectedRect, false}, {kFocused, false}}));
}

TEST_F(OverlayControllerAppDimTest, the_focused_window_is_identified_by_its_number)
{
    const Rect elsewhere{10, 10, 50, 50};
    EXPECT_EQ(focusedItem(elsewhere, 42, kSelectedPID, 42), (AppDimView::Window{kFocused, false}));
    EXPECT_EQ(focusedItem(elsewhere, 43, kSelectedPID, 42), (AppDimView::Window{elsewhere, true}));
    // Zero is no number.
    EXPECT_EQ(focusedItem(elsewhere, 0, kSelectedPID, 0), (AppDimView::Window{elsewhere, true}));
}

TEST_F(OverlayControllerAppDimTest, or_by_its_process_and_a_frame_less_than_two_points_off)
{
    const AppDimView::Window clear{kFocused, false};
    const auto offBy = [](double points) {
        return std::vector<Rect>{{100 + points, 100, 300, 200}, {100 - points, 100, 300, 200},
                                 {100, 100 + points, 300, 200}, {100, 100 - points, 300, 200},
                                 {100, 100, 300 + points, 200}, {100, 100, 300 - points, 200},
                                 {100, 100, 300, 200 + points}, {100, 100, 300, 200 - points}};
    };
    for (const Rect& rect : offBy(1.9))
        EXPECT_EQ(focusedItem(rect, 43, kPID, 42), clear);
    for (const Rect& rect : offBy(2.0))
        EXPECT_EQ(focusedItem(rect, 43, kPID, 42), (AppDimView::Window{rect, true}));
    EXPECT_EQ(focusedItem(kFocused, 43, kSelectedPID, 42), (AppDimView::Window{kFocused, true}));
    EXPECT_EQ(focusedItem(kFocused, 43, kPID, 0), clear);
}

TEST_F(OverlayControllerAppDimTest, a_window_list_younger_than_a_tenth_of_a_second_is_used_again)
{
    controller->setState(focused());
    EXPECT_EQ(listReadings(), 1U);
    runLoop.runFor(Seconds(0.09));
    controller->setState(focused(kFocused.translatedBy(1, 0)));
    EXPECT_EQ(listReadings(), 1U);
    EXPECT_EQ(items().back().rect, kFocused.translatedBy(1, 0));
    runLoop.runFor(Seconds(0.02));
    controller->setState(focused(kFocused.translatedBy(2, 0)));
    EXPECT_EQ(listReadings(), 2U);
    runLoop.runFor(Seconds(0.05));
    controller->setState(focused(kFocused.translatedBy(3, 0)));
    EXPECT_EQ(listReadings(), 2U);
}

TEST_F(OverlayControllerAppDimTest, a_window_list_of_exactly_a_tenth_of_a_second_is_too_old)
{
    runLoop.setWallClockOrigin(Seconds(0)); // so that this instant is represented exactly
    controller->setState(focused());
    runLoop.runFor(Seconds(0.099999));
    controller->setState(focused(kFocused.translatedBy(1, 0)));
    EXPECT_EQ(listReadings(), 1U);
    runLoop.runFor(Seconds(0.000001));
    ASSERT_EQ(runLoop.wallClock(), Seconds(0.1));
    controller->setState(focused(kFocused.translatedBy(2, 0)));
    EXPECT_EQ(listReadings(), 2U);
}

TEST_F(OverlayControllerAppDimTest, redraws_only_when_the_list_changed)
{
    controller->setState(focused());
    toolkit.forgetCalls();
    controller->setState(focused());
    EXPECT_TRUE(appDim(0)->calls.empty());
    controller->setState(focused(kFocused.translatedBy(1, 0)));
    EXPECT_EQ(appDim(0)->count("display"), 1U);
    EXPECT_EQ(appDim(0)->count("orderFront"), 0U);
}

TEST_F(OverlayControllerAppDimTest, the_timer_follows_windows_that_move_without_a_focus_change)
{
    controller->setState(focused());
    EXPECT_EQ(runLoop.armedTimerCount(), 1U);
    toolkit.forgetCalls();
    runLoop.runFor(Seconds(0.19));
    EXPECT_EQ(listReadings(), 1U);
    runLoop.runFor(Seconds(0.02));
    EXPECT_EQ(listReadings(), 2U);
    EXPECT_TRUE(appDim(0)->calls.empty()); // unchanged: no pass

    windowInfo.windows->back() = listed(50, kSelectedPID, kSelectedRect.translatedBy(30, 0));
    runLoop.runFor(Seconds(0.2));
    EXPECT_EQ(listReadings(), 3U); // the pass uses what the timer read
    EXPECT_EQ(items().front().rect, kSelectedRect.translatedBy(30, 0));
    EXPECT_EQ(appDim(0)->count("display"), 1U);
    EXPECT_EQ(runLoop.armedTimerCount(), 1U);
}

TEST_F(OverlayControllerAppDimTest, a_list_that_the_timer_found_unchanged_keeps_its_age)
{
    controller->setState(focused());
    runLoop.runFor(Seconds(0.21)); // the timer reads it after 0.2 s
    EXPECT_EQ(listReadings(), 2U);
    controller->setState(focused());
    EXPECT_EQ(listReadings(), 3U);
}

TEST_F(OverlayControllerAppDimTest, passes_do_not_put_the_timer_off)
{
    controller->setState(focused());
    for (int i = 0; i < 5; ++i) {
        runLoop.runFor(Seconds(0.04));
        controller->setState(focused());
    }
    EXPECT_EQ(listReadings(), 3U); // the first pass, the one after 0.12 s, and the timer after 0.2 s
}

TEST_F(OverlayControllerAppDimTest, hiding_ends_the_timer_and_forgets_the_list)
{
    controller->setState(focused());
    controller->setState(FocusState::blank());
    EXPECT_EQ(runLoop.armedTimerCount(), 0U);
    runLoop.runFor(Seconds(1));
    EXPECT_EQ(listReadings(), 1U);
    controller->setState(focused());
    controller->setState(FocusState::blank());
    controller->setState(focused()); // at once, and the list is still read again
    EXPECT_EQ(listReadings(), 3U);
}

TEST_F(OverlayControllerAppDimTest, windows_without_a_screen_are_left_unchanged)
{
    controller->setState(focused());
    screens.set({kPrimary});
    toolkit.forgetCalls();
    controller->setState(focused(kFocused.translatedBy(4, 0)));
    EXPECT_TRUE(appDim(1)->calls.empty());
    EXPECT_EQ(appDim(0)->count("display"), 1U);
}

TEST_F(OverlayControllerAppDimTest, the_timer_allows_the_system_to_join_wake_ups)
{
    controller->setState(focused());
    EXPECT_THAT(runLoop.armedTolerances(), testing::ElementsAre(Seconds(0.05)));
}

TEST_F(OverlayControllerAppDimTest, the_age_of_the_window_list_is_counted_by_the_wall_clock)
{
    controller->setState(focused());
    runLoop.setWallClockOrigin(Seconds(1'700'000'010));
    controller->setState(focused(kFocused.translatedBy(1, 0)));
    EXPECT_EQ(listReadings(), 2U) << "the clock was set forward";
    runLoop.runFor(Seconds(0.15));
    runLoop.setWallClockOrigin(Seconds(1'700'000'000));
    controller->setState(focused(kFocused.translatedBy(2, 0)));
    EXPECT_EQ(listReadings(), 2U) << "and set back";
}

TEST_F(OverlayControllerAppDimTest, a_switch_of_spaces_keeps_the_timer_and_the_window_list)
{
    controller->setState(focused());
    runLoop.runFor(Seconds(0.05));
    toolkit.forgetCalls();
    workspace.announce(WorkspaceNotification::activeSpaceDidChange);
    EXPECT_EQ(listReadings(), 1U) << "the list is young enough";
    EXPECT_EQ(appDim(0)->calls, (Calls{"orderOut", "orderFront"}));
    runLoop.runFor(Seconds(0.15));
    EXPECT_EQ(listReadings(), 2U) << "0.2 seconds after the timer's start";
}

TEST_F(OverlayControllerAppDimTest, without_screens_only_the_highlight_and_the_timer_go_on)
{
    screens.set({});
    screens.announceChange();
    controller->setState(focused());
    EXPECT_TRUE(controller->appDimWindows().empty());
    EXPECT_TRUE(controller->appDimTimerRunning());
    EXPECT_TRUE(highlight()->visible);
    runLoop.runFor(Seconds(1));
    screens.set({kPrimary});
    screens.announceChange();
    EXPECT_EQ(controller->appDimWindows().size(), 1U);
    EXPECT_TRUE(controller->appDimWindows()[0]->isVisible());
}

TEST_F(OverlayControllerAppDimTest, a_change_of_screens_dims_on_the_new_ones_and_keeps_the_highlight_on_top)
{
    controller->setState(focused());
    screens.set({kPrimary, kSecondary, Screen{{-800, 0, 800, 600}, DisplayID{3}}});
    screens.announceChange();
    ASSERT_EQ(controller->appDimWindows().size(), 3U);
    for (const auto& window : controller->appDimWindows())
        EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(controller->appDimWindows()[2]->frame(), (Rect{-800, 0, 800, 600}));
    EXPECT_EQ(items(2).front(), (AppDimView::Window{kSelectedRect.translatedBy(800, 0), true}));
    EXPECT_EQ(controller->appDimViews()[2]->settings, store.settings());
    EXPECT_TRUE(isOnTop(highlight()));
}

} // namespace
} // namespace haloric
