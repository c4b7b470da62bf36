#include "settings/AppInfo.h"

#include "fakes/FakeApplicationCatalog.h"
#include "fakes/FakeBundle.h"

#include <algorithm>
#include <string>
#include <vector>

namespace haloric {
namespace {

using Identifiers = std::vector<std::string>;

class AppInfoTest : public testing::Test {
protected:
    FakeApplicationCatalog catalog;
    FakeBundle bundle;

    AppInfoTest() { bundle.info["CFBundleIdentifier"] = "com.kestrow.haloric"; }

    Identifiers runningApps() { return AppInfo::runningApps(catalog, bundle); }
};

TEST_F(AppInfoTest, running_applications_come_in_the_order_of_their_names_regardless_of_case)
{
    catalog.launch("org.example.1", "notes");
    catalog.launch("org.example.2", "Mail");
    catalog.launch("org.example.3", "browser");
    catalog.launch("org.example.4", "Zip");
    EXPECT_EQ(runningApps(), (Identifiers{"org.example.3", "org.example.2", "org.example.1", "org.example.4"}));
}

TEST_F(AppInfoTest, the_user_s_language_decides_the_order)
{
    catalog.launch("org.example.1", "Mail");
    catalog.launch("org.example.2", "Notes");
    catalog.sortsBackwards = true;
    EXPECT_EQ(runningApps(), (Identifiers{"org.example.2", "org.example.1"}));
}

TEST_F(AppInfoTest, applications_are_sorted_by_the_name_that_is_shown)
{
    catalog.launch("org.example.1", "Mail.app");
    catalog.launch("org.example.2", "Mail Aid");
    EXPECT_EQ(runningApps(), (Identifiers{"org.example.1", "org.example.2"}));
}

TEST_F(AppInfoTest, applications_of_the_same_name_keep_their_order_regardless_of_their_start)
{
    catalog.launch("org.example.b", "Mail");
    catalog.launch("org.example.a", "MAIL");
    const Identifiers before = runningApps();
    std::ranges::reverse(catalog.running);
    EXPECT_EQ(runningApps(), before);
}

TEST_F(AppInfoTest, only_regular_applications_are_listed)
{
    catalog.launch("org.example.regular", "Regular");
    catalog.running.push_back({ActivationPolicy::accessory, "org.example.accessory"});
    catalog.running.push_back({ActivationPolicy::prohibited, "org.example.prohibited"});
    EXPECT_EQ(runningApps(), Identifiers{"org.example.regular"});
}

TEST_F(AppInfoTest, an_application_without_an_identifier_is_not_listed)
{
    catalog.running.push_back({ActivationPolicy::regular, std::nullopt});
    EXPECT_EQ(runningApps(), Identifiers{});
}

TEST_F(AppInfoTest, the_application_itself_is_not_listed)
{
    catalog.launch("com.kestrow.haloric", "Haloric");
    catalog.launch("org.example.1", "Mail");
    EXPECT_EQ(runningApps(), Identifiers{"org.example.1"});
}

TEST_F(AppInfoTest, without_an_own_identifier_every_application_is_listed)
{
    bundle.info.clear();
    catalog.launch("org.example.1", "Mail");
    EXPECT_EQ(runningApps(), Identifiers{"org.example.1"});
}

TEST_F(AppInfoTest, an_application_that_runs_twice_is_listed_once)
{
    catalog.launch("org.example.1", "Mail");
    catalog.launch("org.example.2", "Notes");
    catalog.launch("org.example.1", "Mail");
    EXPECT_EQ(runningApps(), (Identifiers{"org.example.1", "org.example.2"}));
}

TEST_F(AppInfoTest, the_display_name_is_the_desktop_s_without_any_app_suffix)
{
    const auto shown = [&](const std::string& name) {
        catalog.install("org.example.1", "/Applications/Mail.app", name);
        return AppInfo::displayName(catalog, "org.example.1");
    };
    EXPECT_EQ(shown("Mail"), "Mail");
    EXPECT_EQ(shown("Mail.app"), "Mail");
    EXPECT_EQ(shown("Mail.app.app"), "Mail");
    EXPECT_EQ(shown("Mail.apple.app"), "Maille") << "wherever it stands";
    EXPECT_EQ(shown(".a.apppp"), ".app") << "what a removal leaves is not looked at again";
    EXPECT_EQ(shown("Mail.App"), "Mail.App");
    EXPECT_EQ(shown(""), "");
}

TEST_F(AppInfoTest, an_application_that_is_not_installed_is_shown_by_its_identifier)
{
    EXPECT_EQ(AppInfo::displayName(catalog, "org.example.app.gone"), "org.example.app.gone");
}

TEST_F(AppInfoTest, the_icon_is_that_of_the_application_s_file)
{
    catalog.install("org.example.1", "/Applications/Mail.app", "Mail");
    const Image icon = AppInfo::icon(catalog, "org.example.1");
    ASSERT_TRUE(std::holds_alternative<FileIcon>(icon));
    EXPECT_EQ(std::get<FileIcon>(icon), FileIcon{"/Applications/Mail.app"});
}

TEST_F(AppInfoTest, an_application_that_is_not_installed_has_the_symbol_of_an_application)
{
    const Image icon = AppInfo::icon(catalog, "org.example.gone");
    ASSERT_TRUE(std::holds_alternative<SymbolImage>(icon));
    EXPECT_EQ(std::get<SymbolImage>(icon), SymbolImage{"app"});
}

TEST_F(AppInfoTest, without_that_symbol_the_icon_is_empty)
{
    catalog.symbols.clear();
    EXPECT_TRUE(std::holds_alternative<std::monostate>(AppInfo::icon(catalog, "org.example.gone")));
}

} // namespace
} // namespace haloric
