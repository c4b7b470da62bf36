// An update framework that counts its calls.
#pragma once

#include "platform/UpdaterFramework.h"

#include <vector>

namespace haloric {

class FakeUpdaterFramework final : public UpdaterFramework {
public:
    struct Made {
        bool startingUpdater = false;
        UpdaterDelegate* delegate = nullptr;
        std::weak_ptr<UpdaterController> controller;
    };

    bool isMissing = false;
    std::vector<Made> made;
    int checks = 0;

    std::shared_ptr<UpdaterController> makeStandardController(bool startingUpdater, UpdaterDelegate& delegate) override
    {
        auto controller = isMissing ? nullptr : std::make_shared<Controller>(*this);
        made.push_back({startingUpdater, &delegate, controller});
        return controller;
    }

private:
    class Controller final : public UpdaterController {
    public:
        explicit Controller(FakeUpdaterFramework& owner) : m_owner(owner) {}
        void checkForUpdates() override { ++m_owner.checks; }

    private:
        FakeUpdaterFramework& m_owner;
    };
};

} // namespace haloric
