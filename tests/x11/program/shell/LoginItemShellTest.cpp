// Starting at login, as the settings window switches it.
#include "settings/SettingsCodec.h"
#include "testing/x11/Key.h"
#include "x11/program/shell/SettingsForm.h"

#include <fstream>
#include <iterator>

namespace haloric {
namespace {

class LoginItemShell : public SettingsForm {
protected:
    std::filesystem::path entry()
    {
        return std::filesystem::path(session.environment().at("XDG_CONFIG_HOME")) / "autostart" /
               "com.kestrow.haloric.desktop";
    }
    bool isThere() { return std::filesystem::exists(entry()); }

    std::string text()
    {
        std::ifstream file(entry());
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // What a desktop leaves of an entry that its user has switched off.
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

TEST_P(LoginItemShell, the_switch_makes_the_entry_and_takes_it_away)
{
    install();
    open();
    ASSERT_FALSE(isThere());
    goTo("launchAtLogin");
    press(Key::kSpace);
    EXPECT_TRUE(waitFor([this] { return isThere(); }));
    EXPECT_THAT(text(), testing::HasSubstr("\nExec=\"" + bundle->program().string() + "\"\n"));
    press(Key::kSpace);
    EXPECT_TRUE(waitFor([this] { return !isThere(); }));
    EXPECT_EQ(stored(), SettingsCodec::decode(kStill)); // it is no setting of the record
}

TEST_P(LoginItemShell, what_the_desktop_has_switched_off_shows_as_off_and_can_be_switched_on_again)
{
    install();
    for (const std::string mark : {"Hidden=true", "X-GNOME-Autostart-enabled=false"}) {
        writeEntry(mark);
        open();
        goTo("launchAtLogin");
        press(Key::kSpace); // were it shown as on, this would take the entry away
        EXPECT_TRUE(waitFor([&] { return isThere() && text().find(mark) == std::string::npos; })) << mark;
        press(Key::kSpace);
        EXPECT_TRUE(waitFor([this] { return !isThere(); })) << mark;
        EXPECT_EQ(haloric->stop(), 0);
    }
}

TEST_P(LoginItemShell, an_entry_that_is_in_force_shows_as_on)
{
    install();
    writeEntry("X-GNOME-Autostart-enabled=true");
    open();
    goTo("launchAtLogin");
    press(Key::kSpace);
    EXPECT_TRUE(waitFor([this] { return !isThere(); }));
}

} // namespace
} // namespace haloric
