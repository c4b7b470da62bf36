#include "hosts/sim/scenario/checks/SimExpectations.h"

namespace haloric {

const std::vector<SimStepKind>& simExpectationVerbs()
{
    constexpr auto required = SimPresence::required;
    constexpr auto optional = SimPresence::optional;
    const SimParameter atLeast{"atLeast", SimType::integer, optional, "the least number of times"};
    const SimParameter atMost{"atMost", SimType::integer, optional, "the greatest number of times"};
    const SimParameter exactly{"exactly", SimType::integer, optional, "the number of times"};
    static const std::vector<SimStepKind> verbs{
        {"expectHighlight",
         "the highlight is on screen, above every dimming, and drawn as it should be",
         {{"around", SimType::text, optional, "the window that it surrounds"},
          {"frame", SimType::rect, optional, "the frame that it surrounds, in global space"},
          {"within", SimType::number, optional, "how far it may be off, in points; 0.01"}},
         expectHighlight},
        {"expectNoHighlight", "no highlight is on screen", {}, expectNoHighlight},
        {"expectDim",
         "every screen is dimmed but for a hole where a window is",
         {{"hole", SimType::text, required, "the window"}},
         expectDim},
        {"expectNoDim", "nothing is dimmed", {}, expectNoDim},
        {"expectAppDim",
         "applications are dimmed: just these windows, and nothing that lies before them",
         {{"dimmed", SimType::texts, required, "the windows that are dimmed"}},
         expectAppDim},
        {"expectTint",
         "the title bar is tinted this high",
         {{"height", SimType::number, required, "in points; 0: not at all"}},
         expectTint},
        {"expectLog",
         "a line was written to the log",
         {{"line", SimType::text, required, "the line"},
          {"times", SimType::integer, optional, "how often; 1. 0: never"}},
         expectLog},
        {"expectAlert",
         "an alert with this message was shown",
         {{"message", SimType::text, required, "the message"}},
         expectAlert},
        {"expectURL", "a URL was opened", {{"start", SimType::text, required, "how it begins"}}, expectURL},
        {"expectTracking",
         "the program tracks fast (once a frame) or slowly (by poll)",
         {{"speed", SimType::text, required, "which", {"fast", "slow", "stopped"}}},
         expectTracking},
        {"expectFastPath",
         "the state of the overlay's moves in the window server",
         {{"state", SimType::text, required, "which", {"untried", "unverified", "verified", "givenUp"}}},
         expectFastPath},
        {"expectCount",
         "how often something has happened since the last mark",
         {{"of", SimType::text, required, "what", {"pulses", "moved", "carried", "drawn", "saves", "queries"}},
          atLeast,
          atMost,
          exactly},
         expectCount},
        {"expectSetting",
         "a stored setting has a value",
         {{"is", SimType::object, required, "one or more settings by their stored names"}},
         expectSetting},
    };
    return verbs;
}

} // namespace haloric
