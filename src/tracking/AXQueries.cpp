#include "tracking/AXQueries.h"

#include "foundation/ProductIdentity.h"

#include <string>
#include <utility>
#include <variant>

namespace haloric {

AXQueries::AXQueries(SerialQueues& queues, RunLoop& runLoop, Accessibility& accessibility)
    : m_runLoop(runLoop),
      m_accessibility(accessibility),
      m_axWorker(std::make_shared<AXFocusWorker>(accessibility)),
      m_axQueue(
          queues.make(std::string(ProductIdentity::kIdentifier) + ".accessibility", QualityOfService::userInitiated))
{
}

AXQueries::~AXQueries()
{
    // Queued after any running query, whose result will then be ignored.
    m_axQueue->async([made = m_made] { made->reset(); });
}

void AXQueries::submit(const Request& request, ResultHandler onResult, FinishHandler onFinish)
{
    auto finish =
        m_anchor.bind([onFinish = std::move(onFinish)](AXQueries& self) { onFinish(std::move(*self.m_made)); });
    m_axQueue->async([request, worker = m_axWorker, made = m_made, &runLoop = m_runLoop,
                      &accessibility = m_accessibility, onResult = std::move(onResult), finish = std::move(finish)] {
        const auto result = worker->query(request.pid, request.titleBarRevision);
        runLoop.post([onResult, result] { onResult(result); });

        const bool hasAnswered = !std::holds_alternative<AXFocusWorker::Unavailable>(result);
        const AXElement app = worker->applicationElement(request.pid);
        if (app && !request.observation)
            *made = AXObservation::make(accessibility, request.pid, app);
        else if (app && hasAnswered)
            request.observation->addMissing(app);
        runLoop.post(finish);
    });
}

void AXQueries::release(std::unique_ptr<AXObservation> observation)
{
    const auto doomed = std::make_shared<ObservationBox>(std::move(observation));
    m_axQueue->async([doomed] { doomed->reset(); });
}

void AXQueries::resetWorker()
{
    m_axQueue->async([worker = m_axWorker] { worker->reset(); });
}

} // namespace haloric
