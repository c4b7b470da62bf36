// The updater of this host: a controller for the feed that the information dictionary names. Main thread.
#pragma once

#include "hosts/linux/update/LinuxUpdaterController.h"
#include "platform/UpdaterFramework.h"

namespace haloric {

class Bundle;

class LinuxUpdaterFramework final : public UpdaterFramework {
public:
    // Everything outlives the framework and its controllers.
    LinuxUpdaterFramework(const LinuxUpdaterController::Platform& platform, const Bundle& bundle)
        : m_platform(platform),
          m_bundle(bundle)
    {
    }

    // The feed is SUFeedURL, the installed version CFBundleVersion, shown as CFBundleShortVersionString; each version
    // stands for the other where that is missing. Null without a feed or a version.
    std::shared_ptr<UpdaterController> makeStandardController(bool startingUpdater, UpdaterDelegate& delegate) override;

private:
    LinuxUpdaterController::Platform m_platform;
    const Bundle& m_bundle;
};

} // namespace haloric
