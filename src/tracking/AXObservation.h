// An observer of the tracked application, which reports changes of its windows at once. Made and released on the
// Accessibility queue; added to the main run loop, removed (before the release) and called on the main thread.
#pragma once

#include "foundation/Ids.h"
#include "platform/Accessibility.h"

#include <functional>
#include <memory>
#include <string_view>

namespace haloric {

class AXObservation {
public:
    // Null when no observer can be made. An application that refuses a notification still delivers the others.
    static std::unique_ptr<AXObservation> make(Accessibility& accessibility, ProcessID pid, const AXElement& app);

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
};

} // namespace haloric
