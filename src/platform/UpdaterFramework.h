// The framework that checks for updates and shows its own windows about them. Main thread.
#pragma once

#include <memory>

namespace haloric {

// What the framework asks its user to decide; nothing, so far.
class UpdaterDelegate {
public:
    virtual ~UpdaterDelegate() = default;
};

class UpdaterController {
public:
    virtual ~UpdaterController() = default;

    // A check that the user asked for: its progress and outcome are shown, whatever it is.
    virtual void checkForUpdates() = 0;
};

class UpdaterFramework {
public:
    virtual ~UpdaterFramework() = default;

    // A standard controller; its schedule, feed and keys come from the information dictionary. Held by the caller
    // alone. The delegate is held weakly and outlives the controller. Null where the framework is missing.
    virtual std::shared_ptr<UpdaterController> makeStandardController(bool startingUpdater,
                                                                      UpdaterDelegate& delegate) = 0;
};

} // namespace haloric
