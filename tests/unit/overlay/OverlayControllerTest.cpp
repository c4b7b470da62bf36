// The highlight: when it is shown, where, and in which order.
#include "unit/overlay/OverlayControllerFixture.h"

#include <cmath>

namespace haloric {
namespace {

using OverlayControllerTest = OverlayControllerFixture;

TEST_F(OverlayControllerTest, makes_its_windows_at_once_and_shows_none_of_them)
{
    ASSERT_EQ(toolkit.windows.size(), 5U);
    EXPECT_EQ(highlight()->contentView, &controller->highlightView());
    EXPECT_EQ(dim(0)->contentView, controller->dimViews()[0].get());
    EXPECT_EQ(appDim(1)->contentView, controller->appDimViews()[1].get());
    EXPECT_FALSE(anythingVisible());
    EXPECT_EQ(controller->state(), FocusState::blank());
    EXPECT_FALSE(controller->pulseRunning());
    EXPECT_EQ(input.tapDescriptions.size(), 1U);
}

TEST_F(OverlayControllerTest, the_views_have_the_settings_before_they_are_published)
{
    edit([](Settings& s) { s.cornerRadius = 5; });
    makeController();
    EXPECT_EQ(controller->highlightView().settings.cornerRadius, 5);
    EXPECT_EQ(controller->dimViews()[1]->settings.cornerRadius, 5);
    EXPECT_EQ(controller->appDimViews()[0]->settings.cornerRadius, 5);
}

TEST_F(OverlayControllerTest, puts_the_highlight_around_the_focused_window)
{
    controller->setState(focused());
    EXPECT_EQ(controller->state(), focused());
    EXPECT_TRUE(isOnTop(highlight()));
    EXPECT_EQ(highlight()->frame, kFocused.insetBy(-40)); // glow 18
    EXPECT_EQ(controller->highlightView().windowRect, (Rect{40, 40, 300, 200}));
    EXPECT_EQ(highlight()->count("orderFront"), 1U);
    EXPECT_FALSE(highlight()->displayedBySetFrame);
}

TEST_F(OverlayControllerTest, a_state_without_a_frame_hides_everything)
{
    edit([](Settings& s) { s.dimEnabled = true; });
    controller->setState(focused());
    EXPECT_EQ(toolkit.stack.size(), 3U);
    controller->setState(FocusState::cleared(kPID));
    EXPECT_FALSE(anythingVisible());
    controller->setState(focused());
    EXPECT_EQ(toolkit.stack.size(), 3U);

    edit([](Settings& s) { s.dimScope = DimScope::selectedApps; });
    EXPECT_EQ(toolkit.stack.size(), 3U);
    EXPECT_TRUE(controller->appDimTimerRunning());
    controller->setState(FocusState::blank());
    EXPECT_FALSE(anythingVisible());
    EXPECT_FALSE(controller->appDimTimerRunning());
}

TEST_F(OverlayControllerTest, the_margin_has_room_for_glow_and_pulse)
{
    struct Case {
        bool glow;
        double radius;
        bool pulse;
        double margin;
    };
    controller->setState(focused());
    for (const Case& c : {Case{true, 20, true, 44}, Case{true, 10, true, 32}, Case{false, 20, false, 2},
                          Case{true, 20, false, 44}, Case{true, 0, false, 4}, Case{true, -30, false, 2},
                          Case{false, 20, true, 32}, Case{true, 1e308, true, 260}}) {
        edit([&c](Settings& s) {
            s.glowEnabled = c.glow;
            s.glowRadius = c.radius;
            s.pulseEnabled = c.pulse;
        });
        EXPECT_EQ(highlight()->frame, kFocused.insetBy(-c.margin));
        EXPECT_EQ(controller->highlightView().windowRect, (Rect{c.margin, c.margin, 300, 200}));
    }
}

TEST_F(OverlayControllerTest, without_any_effect_there_is_no_highlight_and_dimming_is_as_before)
{
    edit([](Settings& s) {
        s.borderEnabled = s.glowEnabled = s.tintEnabled = s.pulseEnabled = false;
        s.dimEnabled = true;
    });
    controller->setState(focused());
    EXPECT_FALSE(highlight()->visible);
    EXPECT_TRUE(dim(0)->visible);
    EXPECT_TRUE(dim(1)->visible);
    for (bool Settings::*effect :
         {&Settings::borderEnabled, &Settings::glowEnabled, &Settings::tintEnabled, &Settings::pulseEnabled}) {
        edit([effect](Settings& s) { s.*effect = true; });
        EXPECT_TRUE(isOnTop(highlight()));
        edit([effect](Settings& s) { s.*effect = false; });
        EXPECT_FALSE(highlight()->visible);
    }
}

TEST_F(OverlayControllerTest, a_full_screen_window_loses_the_highlight_only_if_the_setting_is_on_and_keeps_dimming)
{
    edit([](Settings& s) { s.dimEnabled = true; });
    controller->setState(focused(kSecondary.frame));
    EXPECT_TRUE(highlight()->visible);
    edit([](Settings& s) { s.hideWhenFullScreen = true; });
    EXPECT_FALSE(highlight()->visible);
    EXPECT_TRUE(dim(0)->visible);
    EXPECT_TRUE(dim(1)->visible);
    controller->setState(focused(kSecondary.frame.insetBy(0.5)));
    EXPECT_TRUE(highlight()->visible);
    controller->setState(focused(kPrimary.frame));
    EXPECT_FALSE(highlight()->visible);
}

TEST_F(OverlayControllerTest, the_tint_has_the_measured_height_or_the_fallback_or_is_absent)
{
    FocusState state = focused();
    state.titleBar = FocusState::TitleBar::height(52);
    controller->setState(state);
    EXPECT_EQ(controller->highlightView().tintHeight, 52);
    state.titleBar = FocusState::TitleBar::none();
    controller->setState(state);
    EXPECT_EQ(controller->highlightView().tintHeight, std::nullopt);
    state.titleBar = FocusState::TitleBar::unknown();
    controller->setState(state);
    EXPECT_EQ(controller->highlightView().tintHeight, 28);
    edit([](Settings& s) { s.tintHeight = 33; });
    EXPECT_EQ(controller->highlightView().tintHeight, 33);
}

TEST_F(OverlayControllerTest, redraws_only_when_the_geometry_changed)
{
    controller->setState(focused());
    toolkit.forgetCalls();
    controller->setState(focused(kFocused.translatedBy(5, 5)));
    EXPECT_EQ(highlight()->count("display"), 0U);
    controller->setState(focused({105, 105, 301, 200}));
    EXPECT_EQ(highlight()->count("display"), 1U);
    FocusState state = focused({105, 105, 301, 200});
    state.titleBar = FocusState::TitleBar::height(30);
    controller->setState(state);
    EXPECT_EQ(highlight()->count("display"), 2U);
    controller->setState(state);
    EXPECT_EQ(highlight()->count("display"), 2U);
}

TEST_F(OverlayControllerTest, a_move_of_the_same_window_takes_the_fast_path_and_does_not_order)
{
    controller->setState(focused());
    toolkit.forgetCalls();
    controller->setState(focused(kFocused.translatedBy(5, 0)));
    EXPECT_EQ(library.callCount("SLSTransactionCommit"), 1U);
    EXPECT_TRUE(highlight()->calls.empty());
    EXPECT_EQ(controller->highlightWindow().serverFrame(), kFocused.insetBy(-40).translatedBy(5, 0));
}

TEST_F(OverlayControllerTest, another_window_or_process_orders_the_highlight_to_the_front_through_the_toolkit)
{
    controller->setState(focused());
    Rect frame = kFocused;
    for (const auto& [windowID, pid] : {std::pair{43, 7}, std::pair{43, 8}}) {
        toolkit.forgetCalls();
        frame = frame.translatedBy(5, 0);
        controller->setState(focused(frame, static_cast<std::uint64_t>(windowID), ProcessID{pid}));
        EXPECT_EQ(highlight()->calls, (Calls{"setFrameOrigin", "orderFront"}));
    }
    EXPECT_EQ(library.callCount("SLSTransactionCommit"), 0U);
    toolkit.forgetCalls();
    controller->setState(focused(frame, 43, ProcessID{8}));
    EXPECT_TRUE(highlight()->calls.empty());
}

TEST_F(OverlayControllerTest, the_wish_to_order_survives_while_the_highlight_is_hidden)
{
    controller->setState(focused());
    controller->setState(FocusState::cleared(ProcessID{8}));
    toolkit.forgetCalls();
    controller->setState(focused());
    EXPECT_EQ(highlight()->calls, Calls{"orderFront"}); // nothing moved
}

TEST_F(OverlayControllerTest, a_highlight_that_is_shown_again_is_positioned_by_the_toolkit)
{
    controller->setState(focused());
    edit([](Settings& s) { s.borderEnabled = s.glowEnabled = s.pulseEnabled = false; });
    edit([](Settings& s) { s.pulseEnabled = true; });
    EXPECT_EQ(library.callCount("SLSTransactionCommit"), 0U);
    EXPECT_TRUE(highlight()->visible);
    EXPECT_EQ(highlight()->frame, kFocused.insetBy(-32));
}

TEST_F(OverlayControllerTest, without_screens_the_highlight_is_still_placed)
{
    screens.set({});
    screens.announceChange();
    EXPECT_TRUE(controller->dimWindows().empty());
    edit([](Settings& s) { s.dimEnabled = true; });
    controller->setState(focused());
    controller->setState(focused(kFocused.translatedBy(9, 0)));
    EXPECT_TRUE(highlight()->visible);
    EXPECT_EQ(highlight()->frame, kFocused.insetBy(-40).translatedBy(9, 0));
    EXPECT_EQ(library.callCount("SLSTransactionCommit"), 0U);
}

TEST_F(OverlayControllerTest, a_pass_reads_the_settings_of_that_moment)
{
    controller->setState(focused());
    store.update([](Settings& s) { s.glowRadius = 50; }); // not delivered to the views yet
    controller->setState(focused(kFocused.translatedBy(1, 0)));
    EXPECT_EQ(controller->highlightWindow().frame(), kFocused.translatedBy(1, 0).insetBy(-104));
    EXPECT_EQ(controller->highlightView().settings.glowRadius, 18);
}

TEST_F(OverlayControllerTest, only_a_frame_exactly_like_a_screens_counts_as_full_screen)
{
    edit([](Settings& s) { s.hideWhenFullScreen = true; });
    controller->setState(focused(kPrimary.frame));
    EXPECT_FALSE(controller->highlightWindow().isVisible());
    const double wide = std::nextafter(kPrimary.frame.width, 2000);
    controller->setState(focused({0, 0, wide, kPrimary.frame.height}));
    EXPECT_TRUE(controller->highlightWindow().isVisible());
}

} // namespace
} // namespace haloric
