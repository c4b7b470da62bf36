#include "hosts/sim/scenario/steps/SimStepKind.h"

#include <algorithm>

namespace haloric {

const std::vector<const SimStepKind*>& allSimVerbs()
{
    static const auto all = [] {
        std::vector<const SimStepKind*> verbs;
        for (const auto* list : {&simApplicationVerbs(), &simWindowVerbs(), &simSystemVerbs(), &simInputVerbs(),
                                 &simFaultVerbs(), &simExpectationVerbs()}) {
            for (const SimStepKind& verb : *list)
                verbs.push_back(&verb);
        }
        return verbs;
    }();
    return all;
}

const SimStepKind* findSimVerb(std::string_view name)
{
    const auto& all = allSimVerbs();
    const auto found = std::ranges::find(all, name, &SimStepKind::name);
    return found == all.end() ? nullptr : *found;
}

} // namespace haloric
