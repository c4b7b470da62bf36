// The simulated desktop: screens, applications with windows, Spaces, the mouse and the keyboard, trust and faults, in
// virtual time. The adapters of this host read `model`, listen to `notifier` and write `journal`; scenarios use the
// verbs, grouped by duty. Main thread.
#pragma once

#include "hosts/sim/desktop/SimApplicationVerbs.h"
#include "hosts/sim/desktop/SimFaults.h"
#include "hosts/sim/desktop/SimFocus.h"
#include "hosts/sim/desktop/SimJournal.h"
#include "hosts/sim/desktop/SimKeyboard.h"
#include "hosts/sim/desktop/SimModel.h"
#include "hosts/sim/desktop/SimNotifier.h"
#include "hosts/sim/desktop/SimPointer.h"
#include "hosts/sim/desktop/SimScreenVerbs.h"
#include "hosts/sim/desktop/SimSpaces.h"
#include "hosts/sim/desktop/SimWindowVerbs.h"
#include "hosts/sim/loop/SimRunLoop.h"

#include <vector>

namespace haloric {

class SimOverlay;

struct SimDesktop {
    SimDesktop() = default;
    SimDesktop(const SimDesktop&) = delete;
    SimDesktop& operator=(const SimDesktop&) = delete;

    int systemVersion = 14; // 13 has the older display links only
    SimFaults faults;

    SimRunLoop runLoop;
    SimJournal journal{runLoop};
    SimModel model;
    SimNotifier notifier{runLoop, model};

    SimFocus focus{model, notifier};
    SimSpaces spaces{model, notifier, focus};
    SimWindowVerbs windows{model, notifier, focus, spaces};
    SimApplicationVerbs applications{model, notifier, focus, windows};
    SimScreenVerbs screens{model, notifier, windows};
    SimPointer pointer{runLoop, model, notifier, windows};
    SimKeyboard keyboard{notifier};

    std::vector<SimOverlay*> overlays; // those that exist, in the order of making

    // The overlay with this window number, or null.
    SimOverlay* overlay(std::int64_t number) const;
};

} // namespace haloric
