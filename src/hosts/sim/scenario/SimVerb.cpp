#include "hosts/sim/scenario/SimVerb.h"

#include <algorithm>

namespace haloric {

const std::vector<const SimVerb*>& allSimVerbs()
{
    static const auto all = [] {
        std::vector<const SimVerb*> verbs;
        for (const auto* list : {&simApplicationVerbs(), &simWindowVerbs(), &simSystemVerbs(), &simInputVerbs(),
                                 &simFaultVerbs(), &simExpectationVerbs()}) {
            for (const SimVerb& verb : *list)
                verbs.push_back(&verb);
        }
        return verbs;
    }();
    return all;
}

const SimVerb* findSimVerb(std::string_view name)
{
    const auto& all = allSimVerbs();
    const auto found = std::ranges::find(all, name, &SimVerb::name);
    return found == all.end() ? nullptr : *found;
}

} // namespace haloric
