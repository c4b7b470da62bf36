// An observer of the tracked application, which reports changes of its windows at once. Made and released on the
// Accessibility queue; added to the main run loop, removed (before the release) and called on the main thread.
#pragma once

#include "foundation/Ids.h"
#include "platform/Accessibility.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace haloric {

class AXObservation {
public:
    // Null when no observer can be made. An application that refuses a notification still delivers the others. The
    // names that it was not ready to add ("cannot complete") are kept for `addMissing`.
    static std::unique_ptr<AXObservation> make(Accessibility& accessibility, ProcessID pid, const AXElement& app);

    // Accessibility queue, also while the observation is on the run loop, and not after its release was submitted
    // there. Adds the kept names again, in their order, until one cannot be completed. Without kept names it calls
    // nothing.
    void addMissing(const AXElement& app);

    AXObservation(const AXObservation&) = delete;
    AXObservation& operator=(const AXObservation&) = delete;

    // Main thread. The handler may have this observation released on the queue before it returns.
    std::function<void(std::string_view notification)> onNotification;

    void addToMainRunLoop() { m_observer->addToMainRunLoop(); }
    void removeFromMainRunLoop() { m_observer->removeFromMainRunLoop(); }

private:
    AXObservation() = default;
    void deliver(std::string_view notification) const;

    std::unique_ptr<AXObserver> m_observer;
    std::vector<std::string_view> m_missing; // used only on the queue; the names are constants
};

} // namespace haloric
