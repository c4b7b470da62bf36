// An application of the simulated desktop.
#pragma once

#include "foundation/Ids.h"

#include <optional>
#include <string>
#include <vector>

namespace haloric {

struct SimApp {
    ProcessID pid = ProcessID::none;
    std::string name; // what scenarios call it
    std::optional<std::string> bundleID;
    bool hidden = false;
    bool responsive = true;
    bool observable = true;                     // false: no Accessibility observer can be made for it
    bool ready = true;                          // false: it answers, but cannot add notifications to an observer yet
    WindowNumber focused = WindowNumber::none;  // its own focused window, also while another one is frontmost
    std::vector<std::string> heldNotifications; // what it will report once it responds again
};

} // namespace haloric
