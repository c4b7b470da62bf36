// A move-only handle on a registration: a timer, a monitor, an observer. Destroying or resetting it cancels the
// registration; an empty one does nothing. Used on the thread that made it.
#pragma once

#include "foundation/Task.h"

#include <utility>

namespace haloric {

class [[nodiscard]] Subscription {
public:
    Subscription() = default;

    // `cancel` runs once, when the handle is reset, overwritten or destroyed.
    explicit Subscription(Task cancel) : m_cancel(std::move(cancel)) {}

    Subscription(Subscription&& other) noexcept : m_cancel(std::exchange(other.m_cancel, nullptr)) {}

    Subscription& operator=(Subscription&& other) noexcept
    {
        if (this != &other) {
            reset();
            m_cancel = std::exchange(other.m_cancel, nullptr);
        }
        return *this;
    }

    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    ~Subscription() { reset(); }

    void reset()
    {
        if (Task cancel = std::exchange(m_cancel, nullptr))
            cancel();
    }

    explicit operator bool() const { return static_cast<bool>(m_cancel); }

private:
    Task m_cancel;
};

} // namespace haloric
