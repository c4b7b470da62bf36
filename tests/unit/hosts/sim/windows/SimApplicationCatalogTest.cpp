#include "hosts/sim/windows/SimApplicationCatalog.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimApplicationCatalog, the_applications_that_run_are_installed)
{
    SimDesktopFixture fixture;
    const SimApplicationCatalog catalog(fixture.desktop);
    fixture.launch("Editor");
    const auto running = catalog.runningApplications();
    EXPECT_THAT(running, testing::Contains(RunningApplication{ActivationPolicy::regular, "org.example.Editor"}));
    EXPECT_EQ(running.front().activationPolicy, ActivationPolicy::accessory); // the program itself
    EXPECT_EQ(catalog.applicationPath("org.example.Editor"), "/Applications/Editor.app");
    EXPECT_EQ(catalog.bundleIdentifier("/Applications/Editor.app"), "org.example.Editor");
    EXPECT_EQ(catalog.displayName("/Applications/Editor.app"), "Editor.app");
    EXPECT_EQ(catalog.applicationPath("org.example.Missing"), std::nullopt);
    EXPECT_EQ(catalog.compareLocalizedCaseInsensitive("editor", "EDITOR"), 0);
}

} // namespace
} // namespace haloric
