#include "hosts/x11/CommandLine.h"

namespace haloric {

CommandLine CommandLine::parse(std::span<const std::string_view> arguments)
{
    for (const auto argument : arguments) {
        if (argument == "--help" || argument == "-h")
            return {Action::showHelp, {}};
        if (argument == "--version")
            return {Action::showVersion, {}};
        if (argument == "--diagnostics")
            return {Action::showDiagnostics, {}};
        return {Action::refuse, "haloric: unknown option '" + std::string(argument) + "'"};
    }
    return {};
}

std::string_view CommandLine::helpText()
{
    return "Usage: haloric [OPTION]\n"
           "Makes the focused window unmistakable.\n"
           "\n"
           "  --help         show this text\n"
           "  --version      show the version\n"
           "  --diagnostics  show what of the desktop is in use, and which fast paths are in force\n"
           "\n"
           "Without an option it runs until it is ended by SIGINT or SIGTERM.\n"
           "\n"
           "Environment:\n"
           "  DISPLAY                                 the X display to run on\n"
           "  HALORIC_DISABLE_WINDOWSERVER_FAST_PATH  1 switches the fast path for moving windows off\n"
           "\n"
           "Exit status: 0 at a normal end, 1 without a display or when the display went away, 2 for a wrong "
           "option.\n";
}

} // namespace haloric
