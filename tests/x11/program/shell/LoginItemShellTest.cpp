// The login item, switched in the settings window.
#include "settings/SettingsCodec.h"
#include "testing/x11/FileContents.h"
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

#include <fstream>

namespace haloric {
namespace {

class LoginItemShell : public SettingsForm {
protected:
    std::filesystem::path entry()
    {
        return std::filesystem::path(session.environment().at("XDG_CONFIG_HOME")) / "autostart" /
               "com.kestrow.haloric.desktop";
    }
    bool exists() { return std::filesystem::exists(entry()); }

    std::string text() { return contentsOf(entry()); }

    // Writes an entry with the line by which a desktop switches it off or on.
    void writeEntry(const std::string& mark)
    {
        std::filesystem::create_directories(entry().parent_path());
        std::ofstream(entry()) << "[Desktop Entry]\nType=Application\nName=Haloric\nExec=haloric\n" << mark << "\n";
    }

    [[nodiscard]] bool waitFor(const std::function<bool()>& predicate)
    {
        return session.observer().waitUntil(predicate);
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, LoginItemShell, testing::Values(kOpenboxPicom), nameOf);

TEST_P(LoginItemShell, the_toggle_writes_the_entry_and_removes_it)
{
    install();
    open();
    ASSERT_FALSE(exists());
    goTo("launchAtLogin");
    press(Key::kSpace);
    EXPECT_TRUE(waitFor([this] { return exists(); }));
    EXPECT_THAT(text(), testing::HasSubstr("\nExec=\"" + bundle->program().string() + "\"\n"));
    press(Key::kSpace);
    EXPECT_TRUE(waitFor([this] { return !exists(); }));
    EXPECT_EQ(stored(), SettingsCodec::decode(kStill)); // the record does not contain it
}

TEST_P(LoginItemShell, an_entry_that_the_desktop_switched_off_shows_as_off_and_can_be_switched_on)
{
    install();
    for (const std::string mark : {"Hidden=true", "X-GNOME-Autostart-enabled=false"}) {
        writeEntry(mark);
        open();
        goTo("launchAtLogin");
        press(Key::kSpace); // shown as on, it would remove the entry
        EXPECT_TRUE(waitFor([&] { return exists() && text().find(mark) == std::string::npos; })) << mark;
        press(Key::kSpace);
        EXPECT_TRUE(waitFor([this] { return !exists(); })) << mark;
        EXPECT_EQ(haloric->stop(), 0);
    }
}

TEST_P(LoginItemShell, an_entry_that_is_switched_on_shows_as_on)
{
    install();
    writeEntry("X-GNOME-Autostart-enabled=true");
    open();
    goTo("launchAtLogin");
    press(Key::kSpace);
    EXPECT_TRUE(waitFor([this] { return !exists(); }));
}

} // namespace
} // namespace haloric
