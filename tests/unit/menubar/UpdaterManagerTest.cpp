#include "menubar/UpdaterManager.h"

#include "fakes/FakeBundle.h"
#include "fakes/FakeUpdaterFramework.h"

namespace haloric {
namespace {

class UpdaterManagerTest : public testing::Test {
protected:
    UpdaterManagerTest() { bundle.info["SUFeedURL"] = "https://example.org/appcast.xml"; }

    FakeBundle bundle;
    FakeUpdaterFramework framework;
};

TEST_F(UpdaterManagerTest, a_bundle_with_a_feed_gets_an_updater_that_starts_at_once)
{
    UpdaterManager manager(bundle, framework);
    EXPECT_TRUE(manager.isAvailable());
    ASSERT_EQ(framework.made.size(), 1U);
    EXPECT_TRUE(framework.made.front().startingUpdater);
    EXPECT_EQ(framework.made.front().delegate, &manager.gate());
}

TEST_F(UpdaterManagerTest, the_feed_may_be_a_value_of_any_type)
{
    bundle.info.clear();
    bundle.otherInfo.insert("SUFeedURL");
    EXPECT_TRUE(UpdaterManager(bundle, framework).isAvailable());
}

TEST_F(UpdaterManagerTest, outside_a_bundle_there_is_no_updater)
{
    for (const char* path : {"/usr/local/bin", "/Applications/Haloric.app/Contents", "/Applications/Haloric.APP", ""}) {
        bundle.bundlePath = path;
        UpdaterManager manager(bundle, framework);
        EXPECT_FALSE(manager.isAvailable()) << path;
        EXPECT_EQ(manager.gate().controller.lock(), nullptr);
    }
    EXPECT_TRUE(framework.made.empty());
}

TEST_F(UpdaterManagerTest, a_bundle_without_a_feed_has_no_updater)
{
    bundle.info.clear();
    UpdaterManager manager(bundle, framework);
    EXPECT_FALSE(manager.isAvailable());
    EXPECT_TRUE(framework.made.empty());
}

TEST_F(UpdaterManagerTest, where_the_framework_is_missing_there_is_no_updater)
{
    framework.isMissing = true;
    UpdaterManager manager(bundle, framework);
    EXPECT_FALSE(manager.isAvailable());
    manager.gate().checkForUpdates();
    EXPECT_EQ(framework.checks, 0);
}

TEST_F(UpdaterManagerTest, the_gate_passes_a_check_on_to_the_updater)
{
    UpdaterManager manager(bundle, framework);
    manager.gate().checkForUpdates();
    EXPECT_EQ(framework.checks, 1);
}

TEST_F(UpdaterManagerTest, only_the_manager_owns_the_updater)
{
    {
        const UpdaterManager manager(bundle, framework);
        EXPECT_FALSE(framework.made.front().controller.expired());
    }
    EXPECT_TRUE(framework.made.front().controller.expired());
}

TEST(UpdaterGateTest, a_check_after_the_updater_is_destroyed_does_nothing)
{
    FakeUpdaterFramework framework;
    UpdaterGate gate;
    auto controller = framework.makeStandardController(true, gate);
    gate.controller = controller;
    gate.checkForUpdates();
    EXPECT_EQ(framework.checks, 1);
    controller.reset();
    gate.checkForUpdates();
    EXPECT_EQ(framework.checks, 1);
}

} // namespace
} // namespace haloric
