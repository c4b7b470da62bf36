// Delivers values to any number of handlers, in the order in which they subscribed, on the publishing thread.
//
// Handlers may subscribe, unsubscribe (themselves or others) and publish while a delivery runs: a cancelled
// handler is not called any more, a handler that subscribes during a delivery is first called by the next one. A
// subscription may outlive its publisher.
#pragma once

#include "foundation/Subscription.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace haloric {

template <class... Values>
class Publisher {
public:
    using Handler = std::function<void(const Values&...)>;

    Subscription subscribe(Handler handler)
    {
        auto entry = std::make_shared<Handler>(std::move(handler));
        m_entries->push_back(entry);
        return Subscription([entries = std::weak_ptr<Entries>(m_entries), entry] {
            *entry = nullptr;
            if (const auto alive = entries.lock())
                std::erase(*alive, entry);
        });
    }

    void publish(const Values&... values) const
    {
        // A copy, because handlers may change the list; each entry is checked again before its call.
        const Entries entries = *m_entries;
        for (const auto& entry : entries) {
            if (!*entry)
                continue;
            const Handler handler = *entry; // a handler may cancel itself while it runs
            handler(values...);
        }
    }

    std::size_t subscriberCount() const { return m_entries->size(); }

private:
    using Entries = std::vector<std::shared_ptr<Handler>>;
    std::shared_ptr<Entries> m_entries = std::make_shared<Entries>();
};

} // namespace haloric
