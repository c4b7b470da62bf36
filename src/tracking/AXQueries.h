// The Accessibility queue with its worker: the one place from which Accessibility is asked. Main thread; handlers are
// called there, on later turns, and hold their owner weakly, for a result may come after this object is gone. What a
// query made and nobody took by then is released on the queue.
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
    enum class Observe { no, yes };

    struct Request {
        ProcessID pid = ProcessID::none;
        std::uint64_t titleBarRevision = 0;
        Observe observe = Observe::no; // yes: also make an observation of the process
    };
    using ResultHandler = std::function<void(const AXFocusWorker::QueryResult&)>;
    using FinishHandler = std::function<void(std::unique_ptr<AXObservation>)>; // null: none was asked for or made

    // The adapters outlive every block that was submitted.
    AXQueries(SerialQueues& queues, RunLoop& runLoop, Accessibility& accessibility);
    ~AXQueries();
    AXQueries(const AXQueries&) = delete;
    AXQueries& operator=(const AXQueries&) = delete;

    // The result is handed over as soon as it is there; then the observation is made, and handed over in a turn of
    // its own, which ends the query. One query at a time.
    void submit(const Request& request, ResultHandler onResult, FinishHandler onFinish);

    // Takes an observation, which is off the run loop, to the queue and releases it there.
    void release(std::unique_ptr<AXObservation> observation);

    void resetWorker();

private:
    // Filled in a block of the queue, and emptied in the turn that this block posts, which comes before another query,
    // or else in the queue's last block. Whoever empties it decides where the observation ends.
    using ObservationBox = std::unique_ptr<AXObservation>;

    RunLoop& m_runLoop;
    Accessibility& m_accessibility;
    const std::shared_ptr<ObservationBox> m_made = std::make_shared<ObservationBox>();
    std::shared_ptr<AXFocusWorker> m_axWorker; // touched only in blocks of the queue, which share it
    std::unique_ptr<SerialQueue> m_axQueue;    // after what its blocks use: its destructor may wait for them
    WeakAnchor<AXQueries> m_anchor{*this};
};

} // namespace haloric
