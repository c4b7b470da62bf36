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
        observation->m_observer->addNotification(app, name);
    return observation;
}

void AXObservation::deliver(std::string_view notification) const
{
    // A copy, and nothing touched after the call: the handler may have this object released on the queue meanwhile.
    const auto handler = onNotification;
    if (handler)
        handler(notification);
}

} // namespace haloric
