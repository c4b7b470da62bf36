// The command line of haloric-sim.
#pragma once

#include "hosts/sim/scenario/random/SimRandomRun.h"

#include <optional>
#include <span>
#include <string>

namespace haloric {

struct SimOptions {
    enum class Action { help, version, schema, replay, random };

    Action action = Action::help;
    std::string scenario;  // a file
    std::string frames;    // a folder for pictures; empty: none
    std::string shortened; // where the short form of a failing random scenario is written
    SimRandomRun::Options random;

    static const char* helpText();

    // Absent for a wrong command line; `problem` is then the message.
    static std::optional<SimOptions> parse(std::span<const char* const> arguments, std::string& problem);
};

} // namespace haloric
