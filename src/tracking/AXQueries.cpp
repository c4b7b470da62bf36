#include "tracking/AXQueries.h"

#include <utility>

namespace haloric {

namespace {

constexpr std::string_view kQueueLabel = "com.kestrow.haloric.accessibility";

} // namespace

AXQueries::AXQueries(SerialQueues& queues, RunLoop& runLoop, Accessibility& accessibility)
    : m_runLoop(runLoop),
      m_accessibility(accessibility),
      m_axWorker(std::make_shared<AXFocusWorker>(accessibility)),
      m_axQueue(queues.make(kQueueLabel, QualityOfService::userInitiated))
{
}

AXQueries::~AXQueries()
{
    // Behind the query that may be under way, whose last turn will find nobody.
    m_axQueue->async([made = m_made] { made->reset(); });
}

void AXQueries::submit(const Request& request, ResultHandler onResult, FinishHandler onFinish)
{
    m_axQueue->async([request, worker = m_axWorker, made = m_made, self = m_anchor.ref(), &runLoop = m_runLoop,
                      &accessibility = m_accessibility, onResult = std::move(onResult),
                      onFinish = std::move(onFinish)] {
        runLoop.post([onResult, result = worker->query(request.pid, request.titleBarRevision)] { onResult(result); });

        const AXElement app = worker->applicationElement(request.pid);
        if (request.observe == Observe::yes && app)
            *made = AXObservation::make(accessibility, request.pid, app);
        runLoop.post([self, onFinish] {
            if (AXQueries* queries = self.get())
                onFinish(std::move(*queries->m_made));
        });
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
