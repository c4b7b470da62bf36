#include "tracking/AXQueries.h"

#include <utility>

namespace haloric {

namespace {

constexpr std::string_view kQueueLabel = "com.kestrow.haloric.accessibility";

// Tasks can be copied, an observation cannot; and whoever empties the box decides where the observation ends, not
// the last copy of a task.
using ObservationBox = std::shared_ptr<std::unique_ptr<AXObservation>>;

} // namespace

AXQueries::AXQueries(SerialQueues& queues, RunLoop& runLoop, Accessibility& accessibility)
    : m_runLoop(runLoop),
      m_accessibility(accessibility),
      m_axWorker(std::make_shared<AXFocusWorker>(accessibility)),
      m_axQueue(queues.make(kQueueLabel, QualityOfService::userInitiated))
{
}

void AXQueries::submit(const Request& request, ResultHandler onResult, FinishHandler onFinish)
{
    m_axQueue->async([request, worker = m_axWorker, &runLoop = m_runLoop, &accessibility = m_accessibility,
                      onResult = std::move(onResult), onFinish = std::move(onFinish)] {
        runLoop.post([onResult, result = worker->query(request.pid, request.titleBarRevision)] { onResult(result); });

        const auto made = std::make_shared<ObservationBox::element_type>();
        const AXElement app = worker->applicationElement(request.pid);
        if (request.observe == Observe::yes && app)
            *made = AXObservation::make(accessibility, request.pid, app);
        runLoop.post([onFinish, made] { onFinish(std::move(*made)); });
    });
}

void AXQueries::release(std::unique_ptr<AXObservation> observation)
{
    const auto doomed = std::make_shared<ObservationBox::element_type>(std::move(observation));
    m_axQueue->async([doomed] { doomed->reset(); });
}

void AXQueries::resetWorker()
{
    m_axQueue->async([worker = m_axWorker] { worker->reset(); });
}

} // namespace haloric
