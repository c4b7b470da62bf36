// One step of a scenario: when, what, and with which arguments.
#pragma once

#include "hosts/sim/scenario/steps/SimStepKind.h"

#include <optional>
#include <string>

namespace haloric {

struct SimStep {
    std::optional<double> at; // seconds since the start; without it, `after` counts from the step before
    double after = 0;
    const SimStepKind* kind = nullptr;
    SimJson arguments = SimJson::object();
    std::string place; // its place in the file, for messages

    // As in a file.
    SimJson toJson() const
    {
        SimJson json = arguments;
        json["do"] = kind->name;
        if (at)
            json["at"] = *at;
        else if (after != 0)
            json["after"] = after;
        return json;
    }
};

} // namespace haloric
