// Records whether the progress of a check for updates is shown, and lets a test cancel it.
#pragma once

#include "hosts/linux/update/UpdaterDependencies.h"

#include <utility>

namespace haloric {

class FakeUpdateProgress final : public UpdateProgress {
public:
    bool isShown = false;
    int timesShown = 0;

    Subscription show(Task onCancel) override
    {
        isShown = true;
        ++timesShown;
        m_onCancel = std::move(onCancel);
        return Subscription([this] { isShown = false; });
    }

    void cancel()
    {
        if (const Task cancel = std::exchange(m_onCancel, nullptr))
            cancel();
    }

private:
    Task m_onCancel;
};

} // namespace haloric
