#include "hosts/x11/update/X11UpdaterFramework.h"

#include "platform/Bundle.h"

namespace haloric {

std::shared_ptr<UpdaterController> X11UpdaterFramework::makeStandardController(bool startingUpdater, UpdaterDelegate&)
{
    const auto feed = m_bundle.infoString("SUFeedURL");
    const auto version = m_bundle.infoString("CFBundleVersion");
    const auto displayVersion = m_bundle.infoString("CFBundleShortVersionString");
    if (!feed || (!version && !displayVersion))
        return nullptr;
    auto controller = std::make_shared<X11UpdaterController>(
        m_platform, X11UpdaterController::Installed{.feed = *feed,
                                                    .version = version ? *version : *displayVersion,
                                                    .displayVersion = displayVersion ? *displayVersion : *version});
    if (startingUpdater)
        controller->start();
    return controller;
}

} // namespace haloric
