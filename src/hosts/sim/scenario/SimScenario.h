// A story on the simulated desktop: how it is at the start, and what happens then. Read from and written to JSON.
#pragma once

#include "hosts/sim/scenario/steps/SimStep.h"

#include <string>
#include <string_view>
#include <vector>

namespace haloric {

struct SimScenario {
    std::string title;
    std::string story;
    SimJson setup = SimJson::object();
    bool skipsUnknownNames = false; // steps that name something that is gone do nothing, as in shortened scenarios
    std::vector<SimStep> steps;

    // Throws SimScenarioError; its text begins with `source` and names the place.
    static SimScenario parse(std::string_view text, const std::string& source);

    SimJson toJson() const;

    // The JSON schema that scenario files follow.
    static SimJson schema();

    // The schema as text, one kind of step a line.
    static std::string schemaText();
};

} // namespace haloric
