// Counts who waits for a check for updates, and lets a test lose patience.
#pragma once

#include "hosts/linux/update/UpdateProgress.h"

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
