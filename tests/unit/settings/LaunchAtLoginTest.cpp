#include "settings/LaunchAtLogin.h"

#include "fakes/FakeBundle.h"
#include "fakes/FakeLoginItemService.h"

#include <string>
#include <vector>

namespace haloric {
namespace {

using Changes = std::vector<std::string>;

class LaunchAtLoginTest : public testing::Test {
protected:
    FakeBundle bundle;
    FakeLoginItemService service;
    LaunchAtLogin launchAtLogin{bundle, service};
};

TEST_F(LaunchAtLoginTest, it_is_available_only_where_the_path_has_exactly_the_extension_app)
{
    for (const char* path : {"/Applications/Haloric.app", "/a b/Haloric.app", "/x/Haloric.debug.app", "Haloric.app"}) {
        bundle.bundlePath = path;
        EXPECT_TRUE(launchAtLogin.isAvailable()) << path;
    }
    for (const char* path :
         {"", "/", "/build/bin", "/x/Haloric.App", "/x/Haloric.APP", "/x/Haloricapp", "/x/Haloric.app2", "/x/.app",
          "/x/Haloric.app.old", "/x/Haloric.app/Contents", "/x/Haloric.", "/x/Haloric.app "}) {
        bundle.bundlePath = path;
        EXPECT_FALSE(launchAtLogin.isAvailable()) << path;
    }
}

TEST_F(LaunchAtLoginTest, only_the_enabled_state_counts_as_enabled)
{
    for (const LoginItemStatus status :
         {LoginItemStatus::notRegistered, LoginItemStatus::requiresApproval, LoginItemStatus::notFound}) {
        service.currentStatus = status;
        EXPECT_FALSE(launchAtLogin.isEnabled()) << static_cast<int>(status);
    }
    service.currentStatus = LoginItemStatus::enabled;
    EXPECT_TRUE(launchAtLogin.isEnabled());
}

TEST_F(LaunchAtLoginTest, it_is_never_enabled_outside_a_bundle_whatever_the_registration)
{
    service.currentStatus = LoginItemStatus::enabled;
    bundle.bundlePath = "/build/bin";
    EXPECT_FALSE(launchAtLogin.isEnabled());
}

TEST_F(LaunchAtLoginTest, it_registers_and_unregisters_the_application)
{
    EXPECT_EQ(launchAtLogin.set(true), std::nullopt);
    EXPECT_TRUE(launchAtLogin.isEnabled());
    EXPECT_EQ(launchAtLogin.set(false), std::nullopt);
    EXPECT_FALSE(launchAtLogin.isEnabled());
    EXPECT_EQ(service.changes, (Changes{"register", "unregister"}));
}

TEST_F(LaunchAtLoginTest, a_registration_that_waits_for_approval_is_no_error_and_not_enabled)
{
    service.statusOnceRegistered = LoginItemStatus::requiresApproval;
    EXPECT_EQ(launchAtLogin.set(true), std::nullopt);
    EXPECT_FALSE(launchAtLogin.isEnabled());
}

TEST_F(LaunchAtLoginTest, the_system_s_error_is_passed_on_unchanged)
{
    service.error = PlatformError{"SMAppServiceErrorDomain", 1, "Operation not permitted", "Ask the administrator."};
    EXPECT_EQ(launchAtLogin.set(true), service.error);
    EXPECT_EQ(launchAtLogin.set(false), service.error);
}

TEST_F(LaunchAtLoginTest, setting_it_outside_a_bundle_does_nothing_and_is_no_error)
{
    service.error = PlatformError{"SMAppServiceErrorDomain", 1, "Operation not permitted", ""};
    bundle.bundlePath = "/build/bin";
    EXPECT_EQ(launchAtLogin.set(true), std::nullopt);
    EXPECT_EQ(launchAtLogin.set(false), std::nullopt);
    EXPECT_EQ(service.changes, Changes{});
}

} // namespace
} // namespace haloric
