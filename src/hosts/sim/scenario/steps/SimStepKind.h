// A kind of step: the verb that names it in a scenario file, its parameters, and what it does.
#pragma once

#include "hosts/sim/scenario/session/SimParameter.h"

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

// Every kind of step, by duty. To add one, add it to the list of its duty: parser and schema follow.
const std::vector<SimStepKind>& simApplicationSteps();
const std::vector<SimStepKind>& simWindowSteps();
const std::vector<SimStepKind>& simSystemSteps();
const std::vector<SimStepKind>& simInputSteps();
const std::vector<SimStepKind>& simFaultSteps();
const std::vector<SimStepKind>& simExpectationSteps();

// All lists in turn.
const std::vector<const SimStepKind*>& allSimStepKinds();

// Null for an unknown name.
const SimStepKind* findSimStepKind(std::string_view name);

} // namespace haloric
