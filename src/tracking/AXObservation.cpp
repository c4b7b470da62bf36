#include "tracking/AXObservation.h"

#include "platform/AccessibilityNames.h"

namespace haloric {

std::unique_ptr<AXObservation> AXObservation::make(Accessibility& accessibility, ProcessID pid, const AXElement& app)
{
    std::unique_ptr<AXObservation> observation(new AXObservation);
    // The observer's reference is a plain one: it is taken off the run loop before the observation goes.
    observation->m_observer = accessibility.createObserver(
        pid, [self = observation.get()](std::string_view notification) { self->deliver(notification); });
    if (!observation->m_observer)
        return nullptr;
    for (const std::string_view name : AXNotifications::kObserved)
        if (observation->m_observer->addNotification(app, name) == AXError::cannotComplete)
            observation->m_missing.push_back(name);
    return observation;
}

void AXObservation::addMissing(const AXElement& app)
{
    while (!m_missing.empty()) {
        if (m_observer->addNotification(app, m_missing.front()) == AXError::cannotComplete)
            return; // each further one might wait for the whole timeout
        m_missing.erase(m_missing.begin());
    }
}

void AXObservation::deliver(std::string_view notification) const
{
    // A copy, and nothing touched after the call: the handler may have this object released on the queue meanwhile.
    const auto handler = onNotification;
    if (handler)
        handler(notification);
}

} // namespace haloric
