// The updater's delegate, and the target of the menu's command to check for updates. Main thread.
#pragma once

#include "platform/UpdaterFramework.h"

#include <memory>

namespace haloric {

class UpdaterGate final : public UpdaterDelegate {
public:
    std::weak_ptr<UpdaterController> controller;

    // A check on the user's request; the framework shows its progress and result. Does nothing without a controller.
    void checkForUpdates() const;
};

} // namespace haloric
