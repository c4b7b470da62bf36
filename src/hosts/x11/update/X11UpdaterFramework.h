// The updater of this host: a controller for the feed that the information dictionary names. Main thread.
#pragma once

#include "hosts/x11/update/X11UpdaterController.h"
#include "platform/UpdaterFramework.h"

namespace haloric {

class Bundle;

class X11UpdaterFramework final : public UpdaterFramework {
public:
    // Everything outlives the framework and its controllers.
    X11UpdaterFramework(const X11UpdaterController::Platform& platform, const Bundle& bundle)
        : m_platform(platform),
          m_bundle(bundle)
    {
    }

    // The feed is SUFeedURL, the installed version CFBundleVersion, shown as CFBundleShortVersionString; each version
    // stands for the other where that is missing. Null without a feed or a version.
    std::shared_ptr<UpdaterController> makeStandardController(bool startingUpdater, UpdaterDelegate& delegate) override;

private:
    X11UpdaterController::Platform m_platform;
    const Bundle& m_bundle;
};

} // namespace haloric
