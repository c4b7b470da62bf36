// The framework that checks for updates and shows its own windows about them. Main thread.
#pragma once

#include <memory>

namespace haloric {

// Decisions that the framework leaves to the program; none so far.
class UpdaterDelegate {
public:
    virtual ~UpdaterDelegate() = default;
};

class UpdaterController {
public:
    virtual ~UpdaterController() = default;

    // A check on the user's request: progress and result are always shown.
    virtual void checkForUpdates() = 0;
};

class UpdaterFramework {
public:
    virtual ~UpdaterFramework() = default;

    // A standard controller; its schedule, feed and keys come from the information dictionary. Owned only
    // by the caller. The delegate is held weakly and outlives the controller. Null without the framework.
    virtual std::shared_ptr<UpdaterController> makeStandardController(bool startingUpdater,
                                                                      UpdaterDelegate& delegate) = 0;
};

} // namespace haloric
