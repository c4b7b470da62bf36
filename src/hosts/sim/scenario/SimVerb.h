// Something that a scenario's step can do.
#pragma once

#include "hosts/sim/scenario/SimParameter.h"

#include <string_view>
#include <vector>

namespace haloric {

class SimPlayer;

struct SimVerb {
    std::string_view name;
    std::string_view help;
    std::vector<SimParameter> parameters;

    // The arguments have been checked against the parameters. Throws SimUnknownName, SimScenarioError or SimFailure.
    void (*run)(SimPlayer& player, const SimJson& arguments);
};

// Every verb, by duty. To add one, add it to the list of its duty: parser, schema and documentation follow.
const std::vector<SimVerb>& simApplicationVerbs();
const std::vector<SimVerb>& simWindowVerbs();
const std::vector<SimVerb>& simSystemVerbs();
const std::vector<SimVerb>& simInputVerbs();
const std::vector<SimVerb>& simFaultVerbs();
const std::vector<SimVerb>& simExpectationVerbs();

// All lists in turn.
const std::vector<const SimVerb*>& allSimVerbs();

// Null for an unknown name.
const SimVerb* findSimVerb(std::string_view name);

} // namespace haloric
