#include "hosts/sim/scenario/steps/SimStepKind.h"

#include <algorithm>

namespace haloric {

const std::vector<const SimStepKind*>& allSimStepKinds()
{
    static const auto all = [] {
        std::vector<const SimStepKind*> kinds;
        for (const auto* list : {&simApplicationSteps(), &simWindowSteps(), &simSystemSteps(), &simInputSteps(),
                                 &simFaultSteps(), &simExpectationSteps()}) {
            for (const SimStepKind& kind : *list)
                kinds.push_back(&kind);
        }
        return kinds;
    }();
    return all;
}

const SimStepKind* findSimStepKind(std::string_view name)
{
    const auto& all = allSimStepKinds();
    const auto found = std::ranges::find(all, name, &SimStepKind::name);
    return found == all.end() ? nullptr : *found;
}

} // namespace haloric
