// The program's command line. Pure.
#pragma once

#include "app/InstanceCommand.h"

#include <span>
#include <string>
#include <string_view>

namespace haloric {

struct CommandLine {
    enum class Action {
        run,
        openSettings, // in the running instance; in this one if none runs
        command,      // for the running instance
        printSettings,
        showHelp,
        showVersion,
        showDiagnostics,
        refuse,
    };

    Action action = Action::run;
    InstanceCommand command = {}; // for Action::command
    std::string complaint = {};   // for Action::refuse: an error message of one line

    // `arguments` excludes the program's name. --help and --version ignore further arguments; after any other option an
    // unexpected argument is refused.
    static CommandLine parse(std::span<const std::string_view> arguments);
    static std::string_view helpText();
};

} // namespace haloric
