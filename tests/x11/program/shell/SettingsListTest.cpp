// The picker of the dimming's scope and the list of applications.
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

#include <fstream>

namespace haloric {
namespace {

constexpr Pixel kClientColor = 0xF0E0D0;
const std::string kClass = "HaloricTestClient";

class SettingsList : public SettingsForm {
protected:
    void chooseSelectedApps()
    {
        goTo("dimScope");
        press(Key::kDown);
        ASSERT_TRUE(waitForStored([](const Settings& now) { return now.dimScope == DimScope::selectedApps; }));
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsList, testing::Values(kOpenboxPicom), nameOf);

TEST_P(SettingsList, a_running_application_is_added_dimmed_and_removed_again)
{
    const auto other = openFocused({.content = {1300, 200, 400, 300}, .color = kClientColor});
    open(R"({"pulseEnabled": false, "dimEnabled": true})");
    ASSERT_TRUE(waitForPixel(1500, 350, blended(0, kClientColor, 0.35)));
    chooseSelectedApps();
    EXPECT_TRUE(waitForPixel(1500, 350, kClientColor));
    goTo("addRunningApp");
    press(Key::kSpace);
    const auto menu = shell->waitForMenu();
    ASSERT_TRUE(menu);
    ASSERT_TRUE(shell->moveInMenu(*menu, Key::kDown));
    press(Key::kReturn);
    ASSERT_TRUE(waitForStored([](const Settings& now) { return now.dimApps == std::vector{kClass}; }));
    EXPECT_TRUE(waitForPixel(1500, 350, blended(0, kClientColor, 0.35)));
    goTo(kClass);
    press(Key::kSpace);
    EXPECT_TRUE(waitForStored([](const Settings& now) { return now.dimApps.empty(); }));
    EXPECT_TRUE(waitForPixel(1500, 350, kClientColor));
}

TEST_P(SettingsList, an_installed_application_is_chosen)
{
    const auto folder = std::filesystem::path(session.environment().at("XDG_DATA_HOME")) / "applications";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "org.test.Zither.desktop")
        << "[Desktop Entry]\nType=Application\nExec=true\nName=Zither of the test\n";
    open();
    chooseSelectedApps();
    goTo("chooseApplication");
    press(Key::kSpace);
    ASSERT_TRUE(shell->waitUntilActive("Choose Application"));
    for (const char letter : std::string("zither of"))
        press(static_cast<std::uint32_t>(letter));
    press(Key::kReturn);
    EXPECT_TRUE(
        waitForStored([](const Settings& now) { return now.dimApps == std::vector<std::string>{"org.test.Zither"}; }));
}

} // namespace
} // namespace haloric
