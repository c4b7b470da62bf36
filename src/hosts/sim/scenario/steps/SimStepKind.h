// Something that a scenario's step can do.
#pragma once

#include "hosts/sim/scenario/steps/SimParameter.h"

#include <string_view>
#include <vector>

namespace haloric {

class SimPlayer;

struct SimStepKind {
    std::string_view name;
    std::string_view help;
    std::vector<SimParameter> parameters;

    // The arguments have been checked against the parameters. Throws SimUnknownName, SimScenarioError or SimFailure.
    void (*run)(SimPlayer& player, const SimJson& arguments);
};

// Every verb, by duty. To add one, add it to the list of its duty: parser, schema and documentation follow.
const std::vector<SimStepKind>& simApplicationVerbs();
const std::vector<SimStepKind>& simWindowVerbs();
const std::vector<SimStepKind>& simSystemVerbs();
const std::vector<SimStepKind>& simInputVerbs();
const std::vector<SimStepKind>& simFaultVerbs();
const std::vector<SimStepKind>& simExpectationVerbs();

// All lists in turn.
const std::vector<const SimStepKind*>& allSimVerbs();

// Null for an unknown name.
const SimStepKind* findSimVerb(std::string_view name);

} // namespace haloric
