#include "tracking/FocusPulse.h"

namespace haloric {
namespace {

constexpr WindowIdentity kA{1};
constexpr WindowIdentity kB{2};

TEST(FocusPulseTest, nothing_noted_means_no_pulse)
{
    FocusPulse pulse;
    EXPECT_FALSE(pulse.focused(kA));
}

TEST(FocusPulseTest, the_first_focus_after_a_switch_pulses_once)
{
    FocusPulse pulse;
    pulse.pulseOnNextFocus();
    EXPECT_TRUE(pulse.focused(kA));
    EXPECT_FALSE(pulse.focused(kB));
}

TEST(FocusPulseTest, a_focus_change_pulses_only_when_it_ends_on_another_window)
{
    FocusPulse pulse;
    pulse.focusChangeBegan(kA);
    EXPECT_FALSE(pulse.focused(kA));
    EXPECT_FALSE(pulse.focused(kB)) << "the change has been consumed";
    pulse.focusChangeBegan(kA);
    EXPECT_TRUE(pulse.focused(kB));
}

TEST(FocusPulseTest, the_first_of_several_focus_changes_counts)
{
    FocusPulse pulse;
    pulse.focusChangeBegan(kA);
    pulse.focusChangeBegan(kB);
    EXPECT_TRUE(pulse.focused(kB));
}

TEST(FocusPulseTest, a_change_from_no_window_at_all_pulses)
{
    FocusPulse pulse;
    pulse.focusChangeBegan(WindowIdentity::none);
    EXPECT_TRUE(pulse.focused(kA));
}

TEST(FocusPulseTest, a_switch_outweighs_a_focus_change)
{
    FocusPulse pulse;
    pulse.pulseOnNextFocus();
    pulse.focusChangeBegan(kA);
    EXPECT_TRUE(pulse.focused(kA));
    EXPECT_FALSE(pulse.focused(kB)) << "both have been consumed";

    pulse.focusChangeBegan(kA);
    pulse.pulseOnNextFocus();
    EXPECT_TRUE(pulse.focused(kA));
    EXPECT_FALSE(pulse.focused(kB));
}

TEST(FocusPulseTest, clearing_forgets_both)
{
    FocusPulse pulse;
    pulse.focusChangeBegan(kA);
    pulse.clear();
    EXPECT_FALSE(pulse.focused(kB));
    pulse.pulseOnNextFocus();
    pulse.clear();
    EXPECT_FALSE(pulse.focused(kB));
}

} // namespace
} // namespace haloric
