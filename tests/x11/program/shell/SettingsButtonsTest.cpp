// The buttons of the settings window: reset, restart and quit.
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

namespace haloric {
namespace {

class SettingsButtons : public SettingsForm {
protected:
    // Another process of the installed program with a mapped window; 0 if there is none.
    pid_t successor()
    {
        for (const RootChild& child : session.observer().rootChildren()) {
            std::error_code error;
            const auto file = std::filesystem::read_symlink("/proc/" + std::to_string(child.process) + "/exe", error);
            if (child.isMapped && child.process != haloric->pid() && bundle && file == bundle->program())
                return child.process;
        }
        return 0;
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsButtons, testing::Values(kOpenboxPicom), nameOf);

TEST_P(SettingsButtons, reset_restores_every_default)
{
    open(R"({"accent": {"r": 1, "g": 0, "b": 0, "a": 1}, "borderWidth": 8, "dimEnabled": true, "dimApps": ["x"]})");
    ASSERT_TRUE(waitForPixel(frame().x + frame().width / 2, frame().bottom() - 4, 0xFF0000));
    goTo("resetToDefaults");
    press(Key::kSpace);
    EXPECT_TRUE(waitForStored([](const Settings& now) { return now == Settings::defaults(); }));
    EXPECT_TRUE(waitForPixel(frame().x + frame().width / 2, frame().bottom() - 2, kAccent));
    EXPECT_TRUE(waitForPixel(1700, 900, X11Session::kDesktopColor));
}

TEST_P(SettingsButtons, restart_starts_a_new_process_with_the_same_settings)
{
    constexpr Pixel kRed = 0xFF0000;
    install();
    open(R"({"pulseEnabled": false, "accent": {"r": 1, "g": 0, "b": 0, "a": 1}})");
    const Settings before = stored().value();
    goTo("restart");
    press(Key::kSpace);
    EXPECT_EQ(haloric->process().waitForExit(), 0) << log();
    EXPECT_TRUE(haloric->waitForNothing());
    ASSERT_TRUE(client->focus());
    ASSERT_TRUE(session.observer().waitUntil([this] { return successor() != 0; }));
    const ScreenRect around = client->visibleFrame();
    EXPECT_TRUE(waitForPixel(around.x + around.width / 2, around.bottom() - 2, kRed));
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(startAnother({"--quit"}), 0);
    EXPECT_TRUE(session.observer().waitUntil([this] { return successor() == 0; }));
}

TEST_P(SettingsButtons, without_a_bundle_restart_ends_the_program)
{
    open();
    goTo("restart");
    press(Key::kSpace);
    EXPECT_EQ(haloric->process().waitForExit(), 0) << log();
    EXPECT_EQ(startAnother({"--quit"}), 3) << "an instance is running";
}

TEST_P(SettingsButtons, quit_ends_the_program_and_nothing_remains_on_the_screen)
{
    open(R"({"pulseEnabled": false, "dimEnabled": true})");
    ASSERT_TRUE(waitForPixel(1700, 900, blended(0, X11Session::kDesktopColor, 0.35)));
    const ScreenRect around = frame();
    goTo("quit");
    press(Key::kSpace);
    EXPECT_EQ(haloric->process().waitForExit(), 0) << log();
    EXPECT_TRUE(haloric->waitForNothing());
    EXPECT_TRUE(session.observer().waitUntil([this] { return shell->window() == XCB_WINDOW_NONE; }));
    EXPECT_TRUE(waitForPixel(1700, 900, X11Session::kDesktopColor));
    EXPECT_TRUE(waitForPixel(around.right() + 4, around.y + around.height / 2, X11Session::kDesktopColor));
    EXPECT_EQ(startAnother({"--quit"}), 3) << "an instance is running";
}

} // namespace
} // namespace haloric
