#include "unit/tracking/FocusTrackerFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FocusTrackerPulseTest : public FocusTrackerFixture {
protected:
    FocusTrackerPulseTest() { otherWindow = addWindow(kEditor, kOtherWindow, {200, 200, 300, 300}); }

    FakeAXElementRef otherWindow;
};

// Either notification may be the only one.
class FocusTrackerPulseNoticeTest : public FocusTrackerPulseTest, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(, FocusTrackerPulseNoticeTest,
                         testing::Values("AXFocusedWindowChanged", "AXMainWindowChanged"),
                         [](const auto& notice) { return std::string(notice.param); });

TEST_P(FocusTrackerPulseNoticeTest, focusing_another_window_of_the_application_pulses_after_the_new_state)
{
    start();
    journal.clear();
    focus(kEditor, otherWindow);
    notify(GetParam());
    run();
    EXPECT_THAT(journal, ElementsAre("7/43 200,300 300x300", "pulse"));
}

TEST_P(FocusTrackerPulseNoticeTest, refocusing_the_same_window_does_not_pulse)
{
    start();
    journal.clear();
    notify(GetParam());
    run();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerPulseTest, going_to_another_window_and_back_before_any_result_does_not_pulse)
{
    start();
    journal.clear();
    focus(kEditor, otherWindow);
    notify("AXFocusedWindowChanged");
    focus(kEditor, editorWindow);
    notify("AXFocusedWindowChanged");
    run();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerPulseTest, several_notifications_of_one_change_pulse_once)
{
    start();
    journal.clear();
    focus(kEditor, otherWindow);
    notify("AXFocusedWindowChanged");
    notify("AXMainWindowChanged");
    run();
    poll();
    EXPECT_THAT(journal, ElementsAre("7/43 200,300 300x300", "pulse"));
}

TEST_F(FocusTrackerPulseTest, a_change_that_only_the_poll_sees_does_not_pulse)
{
    start();
    journal.clear();
    focus(kEditor, otherWindow);
    poll();
    EXPECT_THAT(journal, ElementsAre("7/43 200,300 300x300"));
}

TEST_F(FocusTrackerPulseTest, a_space_switch_pulses_the_same_window_again)
{
    start();
    journal.clear();
    workspace.announce(WorkspaceNotification::activeSpaceDidChange);
    run();
    EXPECT_THAT(journal, ElementsAre("blank", "7/42 100,400 400x300", "pulse"));
}

TEST_F(FocusTrackerPulseTest, the_pulse_of_a_switch_waits_for_a_focused_window)
{
    focusNothing(kEditor);
    start();
    poll();
    EXPECT_THAT(takeJournal(), ElementsAre("cleared 7"));
    focus(kEditor, editorWindow);
    poll();
    EXPECT_THAT(takeJournal(), ElementsAre("7/42 100,400 400x300", "pulse"));
    poll();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerPulseTest, a_switch_forgets_the_focus_change_before_it)
{
    start();
    journal.clear();
    focus(kEditor, otherWindow);
    notify("AXFocusedWindowChanged");
    activate(kMail);
    run();
    EXPECT_THAT(takeJournal(), ElementsAre("blank", "cleared 8", "8/50 500,400 300x200", "pulse"));
    poll();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(FocusTrackerPulseTest, windows_without_a_number_are_distinguished_by_their_hash)
{
    editorWindow->number = otherWindow->number = {AXError::failure, WindowNumber::none};
    start();
    journal.clear();
    notify("AXFocusedWindowChanged");
    run();
    EXPECT_THAT(takeJournal(), IsEmpty());
    focus(kEditor, otherWindow);
    notify("AXFocusedWindowChanged");
    run();
    EXPECT_THAT(journal, ElementsAre("7/1043 200,300 300x300", "pulse"));
}

} // namespace
} // namespace haloric
