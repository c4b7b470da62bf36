// Counts from any thread, added up into one call on the main thread.
#pragma once

#include "platform/DisplayLinks.h"
#include "platform/RunLoop.h"

#include <atomic>

namespace haloric {

class X11DataAddSource final : public DataAddSource, public std::enable_shared_from_this<X11DataAddSource> {
public:
    // The loop outlives it.
    X11DataAddSource(RunLoop& runLoop, Task handler) : m_runLoop(runLoop), m_handler(std::move(handler)) {}

    void resume() override;
    void add(std::uint64_t count) override;
    void cancel() override;

private:
    void schedule();
    void deliver();

    RunLoop& m_runLoop;
    Task m_handler; // main thread alone
    std::atomic<std::uint64_t> m_count{0};
    std::atomic<bool> m_resumed{false};
};

} // namespace haloric
