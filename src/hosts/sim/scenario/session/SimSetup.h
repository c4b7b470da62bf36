// How the simulated desktop is when the program starts.
#pragma once

#include "hosts/sim/desktop/SimFaults.h"
#include "hosts/sim/desktop/SimScreen.h"
#include "hosts/sim/scenario/session/SimParameter.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace haloric {

struct SimSetup {
    int systemVersion = 14;
    bool trusted = true;
    int spaces = 3;
    std::vector<SimScreen> screens{{DisplayID{1}, {0, 0, 1440, 900}, 60, 2}};
    std::map<std::string, std::string, std::less<>> environment;
    std::string storedSettings; // as an earlier run left them; empty: nothing stored
    std::vector<std::int64_t> alertAnswers;
    std::string bundlePath = "/Applications/Haloric.app";
    SimFaults faults;
    std::uint64_t jitterSeed = 0;
    double jitterSeconds = 0; // notifications arrive up to this late

    // From and to the "setup" member of a scenario. Throws SimScenarioError.
    static SimSetup fromJson(const SimJson& json, const std::string& place);
    static const std::vector<SimParameter>& parameters();
};

} // namespace haloric
