#include "hosts/sim/refresh/SimDisplayLinks.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace haloric {

// Calls a task on every multiple of a screen's refresh period, until it is stopped or the screen is removed.
class SimDisplayLinks::Ticker {
public:
    Ticker(SimDisplayLinks& owner, const SimScreen& screen, Task tick)
        : m_owner(owner),
          m_display(screen.id),
          m_tick(std::move(tick)),
          m_period(std::chrono::round<SimRunLoop::Nanoseconds>(Seconds(1 / screen.framesPerSecond)))
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
            if (!self->m_owner.findScreen(self->m_display)) {
                self->stop();
                return;
            }
            self->schedule();
            const Task tick = self->m_tick; // the tick may destroy its link
            tick();
        });
    }

    SimDisplayLinks& m_owner;
    DisplayID m_display;
    Task m_tick;
    SimRunLoop::Nanoseconds m_period;
    bool m_running = false;
    WeakAnchor<Ticker> m_anchor{*this};
};

class SimDisplayLinks::ScreenLink final : public ScreenDisplayLink {
public:
    ScreenLink(SimDisplayLinks& owner, const SimScreen& screen, Task tick) : m_ticker(owner, screen, std::move(tick)) {}

    void setPreferredFrameRateRange(const FrameRateRange&) override {}
    void addToMainRunLoop() override { m_ticker.start(); }
    void invalidate() override { m_ticker.stop(); }

private:
    Ticker m_ticker;
};

class SimDisplayLinks::VideoLink final : public VideoDisplayLink {
public:
    VideoLink(SimDisplayLinks& owner, const SimScreen& screen) : m_ticker(owner, screen, [this] { m_handler(); }) {}

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
        if (!m_resumed || m_pending.exchange(true))
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
    std::atomic<bool> m_resumed = false;
    std::atomic<bool> m_pending = false;
    WeakAnchor<AddSource> m_anchor{*this};
};

std::unique_ptr<ScreenDisplayLink> SimDisplayLinks::makeScreenLink(const Screen& screen, Task tick)
{
    const SimScreen* found = findScreen(screen.displayID.value_or(DisplayID::none));
    return found && makesLinksFromScreens() ? std::make_unique<ScreenLink>(*this, *found, std::move(tick)) : nullptr;
}

std::unique_ptr<VideoDisplayLink> SimDisplayLinks::makeVideoLink(DisplayID display)
{
    const SimScreen* found = m_desktop.faults.videoLinksFail ? nullptr : findScreen(display);
    return found ? std::make_unique<VideoLink>(*this, *found) : nullptr;
}

std::shared_ptr<DataAddSource> SimDisplayLinks::makeDataAddSource(Task handler)
{
    return std::make_shared<AddSource>(m_desktop.runLoop, std::move(handler));
}

const SimScreen* SimDisplayLinks::findScreen(DisplayID display) const
{
    const auto& screens = m_desktop.model.screens;
    const auto found = std::ranges::find(screens, display, &SimScreen::id);
    return found == screens.end() ? nullptr : &*found;
}

} // namespace haloric
