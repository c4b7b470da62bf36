// The Accessibility queue with its worker: every Accessibility query starts here. Main thread; handlers are called
// there, on later turns, and hold their owner weakly, because a result may arrive after this object is gone. An
// observation that was made but not handed over by then is released on the queue.
#pragma once

#include "foundation/Ids.h"
#include "foundation/WeakAnchor.h"
#include "platform/Accessibility.h"
#include "platform/RunLoop.h"
#include "platform/SerialQueue.h"
#include "tracking/AXFocusWorker.h"
#include "tracking/AXObservation.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace haloric {

class AXQueries {
public:
    struct Request {
        ProcessID pid = ProcessID::none;
        std::uint64_t titleBarRevision = 0;

        // The observation of the process, which gets the notifications that it lacks when the process answers; null:
        // one is made. It is alive until `release` submits its end to the queue.
        AXObservation* observation = nullptr;
    };
    using ResultHandler = std::function<void(const AXFocusWorker::QueryResult&)>;
    using FinishHandler = std::function<void(std::unique_ptr<AXObservation>)>; // null: not requested or not made

    // The adapters outlive every block that was submitted.
    AXQueries(SerialQueues& queues, RunLoop& runLoop, Accessibility& accessibility);
    ~AXQueries();
    AXQueries(const AXQueries&) = delete;
    AXQueries& operator=(const AXQueries&) = delete;

    // Delivers the result as soon as it is available. The observation is made after that and delivered in a separate
    // turn, which ends the query. One query at a time.
    void submit(const Request& request, ResultHandler onResult, FinishHandler onFinish);

    // Releases an observation on the queue. It must be off the run loop.
    void release(std::unique_ptr<AXObservation> observation);

    void resetWorker();

private:
    // Filled in a block of the queue. Emptied in the turn which that block posts, before another query starts, or else
    // in the queue's last block, so that the observation is never destroyed on the wrong thread.
    using ObservationBox = std::unique_ptr<AXObservation>;

    RunLoop& m_runLoop;
    Accessibility& m_accessibility;
    const std::shared_ptr<ObservationBox> m_made = std::make_shared<ObservationBox>();
    std::shared_ptr<AXFocusWorker> m_axWorker; // used only in blocks of the queue, which share it
    std::unique_ptr<SerialQueue> m_axQueue;    // last: its destructor may wait for its blocks
    WeakAnchor<AXQueries> m_anchor{*this};
};

} // namespace haloric
