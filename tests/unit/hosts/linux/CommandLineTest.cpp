#include "hosts/linux/CommandLine.h"

namespace haloric {
namespace {

using Action = CommandLine::Action;

CommandLine parse(std::vector<std::string_view> arguments) { return CommandLine::parse(arguments); }

TEST(CommandLine, without_arguments_the_program_runs) { EXPECT_EQ(parse({}).action, Action::run); }

TEST(CommandLine, each_option_has_its_action)
{
    EXPECT_EQ(parse({"--help"}).action, Action::showHelp);
    EXPECT_EQ(parse({"-h"}).action, Action::showHelp);
    EXPECT_EQ(parse({"--version"}).action, Action::showVersion);
    EXPECT_EQ(parse({"--diagnostics"}).action, Action::showDiagnostics);
    EXPECT_EQ(parse({"--settings"}).action, Action::openSettings);
    EXPECT_EQ(parse({"--print-settings"}).action, Action::printSettings);
}

TEST(CommandLine, commands_for_the_running_program_are_parsed)
{
    const auto quit = parse({"--quit"});
    EXPECT_EQ(quit.action, Action::command);
    EXPECT_EQ(quit.command, (InstanceCommand{InstanceCommand::Kind::quit, ""}));
    const auto toggle = parse({"--toggle", "glow"});
    EXPECT_EQ(toggle.action, Action::command);
    EXPECT_EQ(toggle.command, (InstanceCommand{InstanceCommand::Kind::toggle, "glow"}));
}

TEST(CommandLine, toggling_needs_a_known_effect)
{
    for (const std::vector<std::string_view>& arguments :
         {std::vector<std::string_view>{"--toggle"}, {"--toggle", ""}, {"--toggle", "sound"}, {"--toggle", "--quit"}}) {
        const auto commandLine = parse(arguments);
        EXPECT_EQ(commandLine.action, Action::refuse);
        EXPECT_EQ(commandLine.complaint, "haloric: --toggle needs one of border, glow, tint, dim, pulse");
    }
}

TEST(CommandLine, an_unknown_option_is_refused_by_name)
{
    const auto commandLine = parse({"--colour"});
    EXPECT_EQ(commandLine.action, Action::refuse);
    EXPECT_THAT(commandLine.complaint, testing::HasSubstr("'--colour'"));
}

TEST(CommandLine, an_argument_after_a_complete_command_is_refused_by_name)
{
    for (const std::vector<std::string_view>& arguments : {std::vector<std::string_view>{"--settings", "--bogus"},
                                                           {"--toggle", "border", "--bogus"},
                                                           {"--quit", "--bogus", "more"},
                                                           {"--print-settings", "--bogus"},
                                                           {"--diagnostics", "--bogus"}}) {
        const auto commandLine = parse(arguments);
        EXPECT_EQ(commandLine.action, Action::refuse) << arguments.front();
        EXPECT_EQ(commandLine.complaint, "haloric: unexpected argument '--bogus'") << arguments.front();
    }
    EXPECT_EQ(parse({"--settings", "--settings"}).action, Action::refuse);
    EXPECT_EQ(parse({"--settings", ""}).action, Action::refuse);
}

TEST(CommandLine, an_unknown_option_is_named_whatever_follows)
{
    EXPECT_EQ(parse({"--colour", "--quit"}).complaint, "haloric: unknown option '--colour'");
}

TEST(CommandLine, help_and_version_are_given_whatever_follows)
{
    EXPECT_EQ(parse({"--help", "--bogus"}).action, Action::showHelp);
    EXPECT_EQ(parse({"--version", "more"}).action, Action::showVersion);
}

TEST(CommandLine, a_file_name_and_an_empty_argument_are_refused_too)
{
    EXPECT_EQ(parse({"settings.json"}).action, Action::refuse);
    EXPECT_EQ(parse({""}).action, Action::refuse);
}

TEST(CommandLine, the_help_names_every_option)
{
    for (const char* option :
         {"--help", "--version", "--diagnostics", "--settings", "--toggle", "--quit", "--print-settings"})
        EXPECT_THAT(std::string(CommandLine::helpText()), testing::HasSubstr(option));
}

} // namespace
} // namespace haloric
