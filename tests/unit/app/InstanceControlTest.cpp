#include "app/InstanceControl.h"

#include "fakes/FakeUserDefaults.h"
#include "hosts/sim/loop/SimRunLoop.h"
#include "settings/SettingsCodec.h"
#include "settings/SettingsStore.h"

#include <limits>

namespace haloric {
namespace {

using Kind = InstanceCommand::Kind;

struct InstanceControlTest : testing::Test {
    SimRunLoop loop;
    FakeUserDefaults defaults;
    SettingsStore store{defaults};
    int reopened = 0;
    int quits = 0;
    InstanceControl control{loop, store, [this] { ++reopened; }, [this] { ++quits; }};
};

TEST_F(InstanceControlTest, reopening_and_quitting_happen_after_the_reply)
{
    EXPECT_EQ(control.perform({Kind::reopen, ""}), (InstanceReply{true, ""}));
    EXPECT_EQ(control.perform({Kind::quit, ""}), (InstanceReply{true, ""}));
    EXPECT_EQ(reopened + quits, 0);
    loop.runPosted();
    EXPECT_EQ(reopened, 1);
    EXPECT_EQ(quits, 1);
}

TEST_F(InstanceControlTest, toggling_switches_only_that_effect_and_saves)
{
    Settings expected = Settings::defaults();
    expected.borderEnabled = false;
    EXPECT_EQ(control.perform({Kind::toggle, "border"}), (InstanceReply{true, "border is off\n"}));
    EXPECT_EQ(store.settings(), expected);
    ASSERT_EQ(defaults.writes.size(), 1U);
    EXPECT_EQ(SettingsCodec::decode(defaults.writes[0].second), expected);
    EXPECT_EQ(control.perform({Kind::toggle, "border"}), (InstanceReply{true, "border is on\n"}));
    EXPECT_EQ(store.settings(), Settings::defaults());
}

TEST_F(InstanceControlTest, a_toggle_that_cannot_be_saved_is_in_force_and_refused)
{
    defaults.refusal = PlatformError{.localizedDescription = "The disk is full."};
    EXPECT_EQ(control.perform({Kind::toggle, "border"}),
              (InstanceReply{false, "border is off, but that is not saved: The disk is full.\n"}));
    EXPECT_FALSE(store.settings().borderEnabled);
}

TEST_F(InstanceControlTest, an_unknown_effect_changes_nothing)
{
    EXPECT_FALSE(control.perform({Kind::toggle, "sound"}).done);
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(InstanceControlTest, the_printed_settings_are_the_current_record)
{
    store.update([](Settings& settings) { settings.borderWidth = 7; });
    const auto reply = control.perform({Kind::printSettings, ""});
    EXPECT_TRUE(reply.done);
    EXPECT_EQ(SettingsCodec::decode(reply.text), store.settings());
    EXPECT_TRUE(reply.text.ends_with("}\n"));
}

TEST_F(InstanceControlTest, settings_that_cannot_be_written_are_refused)
{
    store.update([](Settings& settings) { settings.borderWidth = std::numeric_limits<double>::infinity(); });
    EXPECT_FALSE(control.perform({Kind::printSettings, ""}).done);
}

} // namespace
} // namespace haloric
