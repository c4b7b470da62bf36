#include "hosts/sim/SimDisplayLinks.h"

#include <algorithm>
#include <utility>

namespace haloric {

// Calls a task on every multiple of the refresh period while it runs.
class SimDisplayLinks::Ticker {
public:
    Ticker(SimDisplayLinks& owner, double framesPerSecond, Task tick)
        : m_owner(owner),
          m_tick(std::move(tick)),
          m_period(std::chrono::round<SimRunLoop::Nanoseconds>(Seconds(1 / framesPerSecond)))
    {
    }

    ~Ticker() { stop(); }

    void start()
    {
        if (std::exchange(m_running, true))
            return;
        ++m_owner.m_runningLinks;
        schedule();
    }

    void stop()
    {
        if (std::exchange(m_running, false))
            --m_owner.m_runningLinks;
    }

private:
    void schedule()
    {
        SimRunLoop& runLoop = m_owner.m_desktop.runLoop;
        const auto next = (runLoop.now() / m_period + 1) * m_period;
        runLoop.postAt(next, [weak = m_anchor.ref()] {
            auto* self = weak.get();
            if (!self || !self->m_running)
                return;
            self->schedule();
            const Task tick = self->m_tick; // the link may be destroyed by its own tick
            tick();
        });
    }

    SimDisplayLinks& m_owner;
    Task m_tick;
    SimRunLoop::Nanoseconds m_period;
    bool m_running = false;
    WeakAnchor<Ticker> m_anchor{*this};
};

class SimDisplayLinks::ScreenLink final : public ScreenDisplayLink {
public:
    ScreenLink(SimDisplayLinks& owner, const Screen& screen, Task tick)
        : m_ticker(owner, screen.maximumFramesPerSecond, std::move(tick))
    {
    }

    void setPreferredFrameRateRange(const FrameRateRange&) override {}
    void addToMainRunLoop() override { m_ticker.start(); }
    void invalidate() override { m_ticker.stop(); }

private:
    Ticker m_ticker;
};

class SimDisplayLinks::VideoLink final : public VideoDisplayLink {
public:
    VideoLink(SimDisplayLinks& owner, double framesPerSecond)
        : m_ticker(owner, framesPerSecond, [this] { m_handler(); })
    {
    }

    bool setOutputHandler(OutputHandler handler) override
    {
        m_handler = std::move(handler);
        return true;
    }

    bool start() override
    {
        m_ticker.start();
        return true;
    }

    void stop() override { m_ticker.stop(); }

private:
    OutputHandler m_handler = [] { return std::int32_t{0}; };
    Ticker m_ticker;
};

class SimDisplayLinks::AddSource final : public DataAddSource {
public:
    AddSource(SimRunLoop& runLoop, Task handler) : m_runLoop(runLoop), m_handler(std::move(handler)) {}

    void resume() override { m_resumed = true; }

    void add(std::uint64_t) override
    {
        if (!m_resumed || std::exchange(m_pending, true))
            return;
        m_runLoop.post([weak = m_anchor.ref()] {
            auto* self = weak.get();
            if (!self)
                return;
            self->m_pending = false;
            if (const Task handler = self->m_handler)
                handler();
        });
    }

    void cancel() override { m_handler = nullptr; }

private:
    SimRunLoop& m_runLoop;
    Task m_handler;
    bool m_resumed = false;
    bool m_pending = false;
    WeakAnchor<AddSource> m_anchor{*this};
};

std::unique_ptr<ScreenDisplayLink> SimDisplayLinks::makeScreenLink(const Screen& screen, Task tick)
{
    return std::make_unique<ScreenLink>(*this, screen, std::move(tick));
}

std::unique_ptr<VideoDisplayLink> SimDisplayLinks::makeVideoLink(DisplayID display)
{
    const auto& screens = m_desktop.model.screens;
    const auto found = std::ranges::find_if(screens, [&](const SimScreen& screen) { return screen.id == display; });
    if (found == screens.end() || m_desktop.faults.videoLinksFail)
        return nullptr;
    return std::make_unique<VideoLink>(*this, found->framesPerSecond);
}

std::shared_ptr<DataAddSource> SimDisplayLinks::makeDataAddSource(Task handler)
{
    return std::make_shared<AddSource>(m_desktop.runLoop, std::move(handler));
}

} // namespace haloric
