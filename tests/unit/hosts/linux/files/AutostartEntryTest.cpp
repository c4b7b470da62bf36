#include "hosts/linux/files/AutostartEntry.h"

namespace haloric {
namespace {

using State = AutostartEntry::State;

// The line of that key; empty without one.
std::string lineOf(std::string_view key, std::string_view launcher)
{
    const std::string text = AutostartEntry::text(launcher);
    const auto begin = text.find("\n" + std::string(key) + "=");
    return begin == std::string::npos ? "" : text.substr(begin + 1, text.find('\n', begin + 1) - begin - 1);
}

std::string execLine(std::string_view launcher) { return lineOf("Exec", launcher); }

TEST(AutostartEntry, it_starts_the_program_by_its_quoted_path)
{
    EXPECT_EQ(execLine("/opt/My Haloric.app/haloric"), R"(Exec="/opt/My Haloric.app/haloric")");
}

TEST(AutostartEntry, what_is_special_in_quotes_is_escaped_and_escaped_again_as_a_value)
{
    EXPECT_EQ(execLine("/a$b`c\"d"), R"(Exec="/a\\$b\\`c\\"d")");
    EXPECT_EQ(execLine("/a\\b"), R"(Exec="/a\\\\b")");
}

TEST(AutostartEntry, a_per_cent_sign_is_no_field_code_and_not_looked_up_as_one)
{
    EXPECT_EQ(execLine("/100%f"), R"(Exec=/usr/bin/env "/100%%f")");
}

TEST(AutostartEntry, line_ends_in_a_path_stay_in_its_line)
{
    EXPECT_EQ(execLine("/a\nHidden=true\t\r"), R"(Exec="/a\nHidden=true\t\r")");
    EXPECT_EQ(AutostartEntry::stateOf(AutostartEntry::text("/a\nHidden=true")), State::enabled);
}

TEST(AutostartEntry, it_is_passed_over_once_the_program_is_gone)
{
    EXPECT_EQ(lineOf("TryExec", "/opt/My Haloric.app/haloric"), "TryExec=/opt/My Haloric.app/haloric");
    EXPECT_EQ(lineOf("TryExec", "/100%f/$\"x\""), "TryExec=/100%f/$\"x\"");
    EXPECT_EQ(lineOf("TryExec", "/a\\b"), R"(TryExec=/a\\b)");
}

TEST(AutostartEntry, a_path_that_the_key_cannot_hold_is_not_looked_for)
{
    for (const char* launcher : {"/a\nHidden=true", "/a\tb", "/a\x7f", "/ä", "/a "}) {
        EXPECT_EQ(lineOf("TryExec", launcher), "") << launcher;
        EXPECT_NE(execLine(launcher), "") << launcher;
    }
}

TEST(AutostartEntry, what_it_writes_is_enabled)
{
    EXPECT_EQ(AutostartEntry::stateOf(AutostartEntry::text("/opt/haloric")), State::enabled);
}

TEST(AutostartEntry, either_mark_of_the_desktops_disables_it)
{
    for (const char* mark : {"Hidden=true", "X-GNOME-Autostart-enabled=false", "  Hidden =  true  \r"})
        EXPECT_EQ(AutostartEntry::stateOf("[Desktop Entry]\nExec=haloric\n" + std::string(mark)), State::disabled)
            << mark;
}

TEST(AutostartEntry, other_keys_comments_and_groups_do_not_disable_it)
{
    for (const char* line :
         {"Hidden=false", "X-GNOME-Autostart-enabled=true", "OnlyShowIn=GNOME;", "NotShowIn=KDE;", "#Hidden=true",
          "Hidden[de]=true", "[Desktop Action other]\nHidden=true", "NoDisplay=true", "garbage"})
        EXPECT_EQ(AutostartEntry::stateOf("[Desktop Entry]\nExec=haloric\n" + std::string(line)), State::enabled)
            << line;
}

TEST(AutostartEntry, what_starts_nothing_is_no_entry)
{
    for (const char* text : {"", "\n\n", "Exec=haloric", "[Desktop Entry]", "[Desktop Entry]\nExec=\n",
                             "[Other]\nExec=haloric", "\xff\xfe\0binary"})
        EXPECT_EQ(AutostartEntry::stateOf(text), State::unusable) << text;
}

} // namespace
} // namespace haloric
