#include "hosts/linux/CommandLine.h"

namespace haloric {
namespace {

CommandLine refusal(std::string complaint)
{
    return {.action = CommandLine::Action::refuse, .complaint = "haloric: " + std::move(complaint)};
}

// Refuses the arguments after a complete command.
CommandLine refuseRest(std::span<const std::string_view> rest)
{
    return refusal("unexpected argument '" + std::string(rest.front()) + "'");
}

CommandLine parseToggle(std::span<const std::string_view> effects)
{
    if (effects.empty() || !InstanceCommand::switchOf(effects.front()))
        return refusal("--toggle needs one of " + InstanceCommand::effectNames());
    if (effects.size() > 1)
        return refuseRest(effects.subspan(1));
    return {.action = CommandLine::Action::command,
            .command = {.kind = InstanceCommand::Kind::toggle, .effect = std::string(effects.front())}};
}

// Parses an option without arguments.
CommandLine parseOption(std::string_view option)
{
    if (option == "--diagnostics")
        return {.action = CommandLine::Action::showDiagnostics};
    if (option == "--settings")
        return {.action = CommandLine::Action::openSettings};
    if (option == "--print-settings")
        return {.action = CommandLine::Action::printSettings};
    if (option == "--quit")
        return {.action = CommandLine::Action::command, .command = {.kind = InstanceCommand::Kind::quit}};
    return refusal("unknown option '" + std::string(option) + "'");
}

} // namespace

CommandLine CommandLine::parse(std::span<const std::string_view> arguments)
{
    if (arguments.empty())
        return {};
    const std::string_view argument = arguments.front();
    if (argument == "--help" || argument == "-h")
        return {.action = Action::showHelp};
    if (argument == "--version")
        return {.action = Action::showVersion};
    if (argument == "--toggle")
        return parseToggle(arguments.subspan(1));
    const CommandLine parsed = parseOption(argument);
    return parsed.action != Action::refuse && arguments.size() > 1 ? refuseRest(arguments.subspan(1)) : parsed;
}

std::string_view CommandLine::helpText()
{
    return "Usage: haloric [OPTION]\n"
           "Makes the focused window unmistakable.\n"
           "\n"
           "  --settings        open the settings; starts the program when it does not run\n"
           "  --toggle EFFECT   switch border, glow, tint, dim or pulse of the running program on or off\n"
           "  --quit            end the running program\n"
           "  --print-settings  write the settings in force to standard output, as JSON\n"
           "  --diagnostics     show what of the desktop is in use, and which fast paths are in force\n"
           "  --help            show this text\n"
           "  --version         show the version\n"
           "\n"
           "Without an option it runs until it is ended by SIGINT or SIGTERM. When it runs on this display already,\n"
           "that one opens its settings instead.\n"
           "\n"
           "Environment:\n"
           "  DISPLAY                                 the X display to run on\n"
           "  HALORIC_DISABLE_WINDOWSERVER_FAST_PATH  1 switches the fast path for moving windows off\n"
           "  HALORIC_VERBOSE                         1 writes more to the log\n"
           "\n"
           "Exit status: 0 at a normal end, 1 without a display, when the display went away, or when the running\n"
           "program refused or could not save the change; 2 for a wrong option; 3 when no running program could be\n"
           "reached.\n";
}

} // namespace haloric
