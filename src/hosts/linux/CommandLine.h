// What the program was asked to do when it was started. Pure.
#pragma once

#include "app/InstanceCommand.h"

#include <span>
#include <string>
#include <string_view>

namespace haloric {

struct CommandLine {
    enum class Action {
        run,
        openSettings, // of the running instance, or of this one when there is none
        command,      // for the running instance
        printSettings,
        showHelp,
        showVersion,
        showDiagnostics,
        refuse,
    };

    Action action = Action::run;
    InstanceCommand command = {}; // for command
    std::string complaint = {};   // for refuse: one line that says what is wrong

    // `arguments` without the program's name. --help and --version hold whatever follows; after any other, an argument
    // that means nothing is refused.
    static CommandLine parse(std::span<const std::string_view> arguments);
    static std::string_view helpText();
};

} // namespace haloric
