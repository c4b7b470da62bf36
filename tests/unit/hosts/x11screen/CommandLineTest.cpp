#include "hosts/x11/CommandLine.h"

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
}

TEST(CommandLine, an_unknown_option_is_refused_by_name)
{
    const auto commandLine = parse({"--colour"});
    EXPECT_EQ(commandLine.action, Action::refuse);
    EXPECT_THAT(commandLine.complaint, testing::HasSubstr("'--colour'"));
}

TEST(CommandLine, a_file_name_and_an_empty_argument_are_refused_too)
{
    EXPECT_EQ(parse({"settings.json"}).action, Action::refuse);
    EXPECT_EQ(parse({""}).action, Action::refuse);
}

TEST(CommandLine, the_help_names_every_option)
{
    for (const char* option : {"--help", "--version", "--diagnostics"})
        EXPECT_THAT(std::string(CommandLine::helpText()), testing::HasSubstr(option));
}

} // namespace
} // namespace haloric
