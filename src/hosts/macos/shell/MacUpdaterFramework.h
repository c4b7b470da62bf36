// The update framework in the bundle's Frameworks folder, loaded on first use. A bundle without it has no updates.
#pragma once

#include "platform/UpdaterFramework.h"

namespace haloric {

class MacUpdaterFramework final : public UpdaterFramework {
public:
    std::shared_ptr<UpdaterController> makeStandardController(bool startingUpdater, UpdaterDelegate& delegate) override;
};

} // namespace haloric
