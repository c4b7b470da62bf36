#include "hosts/linux/update/LinuxUpdaterFramework.h"

#include "platform/Bundle.h"

namespace haloric {

std::shared_ptr<UpdaterController> LinuxUpdaterFramework::makeStandardController(bool startingUpdater, UpdaterDelegate&)
{
    const auto feed = m_bundle.infoString("SUFeedURL");
    const auto version = m_bundle.infoString("CFBundleVersion");
    const auto displayVersion = m_bundle.infoString("CFBundleShortVersionString");
    if (!feed || (!version && !displayVersion))
        return nullptr;
    auto controller = std::make_shared<LinuxUpdaterController>(
        m_platform, LinuxUpdaterController::Installed{.feed = *feed,
                                                      .version = version ? *version : *displayVersion,
                                                      .displayVersion = displayVersion ? *displayVersion : *version});
    if (startingUpdater)
        controller->start();
    return controller;
}

} // namespace haloric
