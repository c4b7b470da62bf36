// Links by screen and by display number that tick when a test calls `frame`, and data sources that deliver when it
// calls `deliverSources`. Any step can be made to fail.
#pragma once

#include "platform/DisplayLinks.h"
#include "platform/VideoLinks.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace haloric {

class FakeDisplayLinks final : public DisplayLinks, public VideoLinks {
public:
    bool refusesLinks = false;
    bool refusesOutputHandlers = false;
    bool refusesToStart = false;

    std::vector<Screen> screenLinks;          // the screen of each requested link
    std::vector<DisplayID> videoLinks;        // the display of each requested video link
    std::vector<FrameRateRange> rateRanges;   // each range that was set
    std::vector<std::string> calls;           // the calls to links and sources, in order
    std::vector<std::int32_t> handlerReturns; // what output handlers returned

    // A frame of every running link: screen links tick at once, video links add to their sources.
    void frame();

    // Calls the handlers of the sources that have counts.
    void deliverSources();

    std::size_t runningLinkCount() const { return m_running.size(); }
    std::size_t liveSourceCount() const { return m_sources.size(); }

    std::unique_ptr<ScreenDisplayLink> makeScreenLink(const Screen& screen, Task tick) override
    {
        screenLinks.push_back(screen);
        return refusesLinks ? nullptr : std::make_unique<ScreenLink>(*this, std::move(tick));
    }

    std::unique_ptr<VideoDisplayLink> makeVideoLink(DisplayID display) override
    {
        videoLinks.push_back(display);
        return refusesLinks ? nullptr : std::make_unique<VideoLink>(*this);
    }

    std::shared_ptr<DataAddSource> makeDataAddSource(Task handler) override
    {
        return std::make_shared<Source>(*this, std::move(handler));
    }

private:
    class Runner {
    public:
        virtual ~Runner() = default;
        virtual void frame() = 0;
    };

    class ScreenLink final : public ScreenDisplayLink, public Runner {
    public:
        ScreenLink(FakeDisplayLinks& owner, Task tick) : m_owner(owner), m_tick(std::move(tick)) {}
        ~ScreenLink() override { std::erase(m_owner.m_running, this); }

        void setPreferredFrameRateRange(const FrameRateRange& range) override
        {
            m_owner.calls.emplace_back("set rate");
            m_owner.rateRanges.push_back(range);
        }
        void addToMainRunLoop() override
        {
            m_owner.calls.emplace_back("add");
            m_owner.m_running.push_back(this);
        }
        void invalidate() override
        {
            m_owner.calls.emplace_back("invalidate");
            std::erase(m_owner.m_running, this);
        }
        void frame() override { m_tick(); } // may destroy this link

    private:
        FakeDisplayLinks& m_owner;
        Task m_tick;
    };

    class VideoLink final : public VideoDisplayLink, public Runner {
    public:
        explicit VideoLink(FakeDisplayLinks& owner) : m_owner(owner) {}
        ~VideoLink() override
        {
            m_owner.calls.emplace_back("free link");
            std::erase(m_owner.m_running, this);
        }

        bool setOutputHandler(OutputHandler handler) override
        {
            m_handler = std::move(handler);
            return !m_owner.refusesOutputHandlers;
        }
        bool start() override
        {
            m_owner.calls.emplace_back("start");
            if (m_owner.refusesToStart)
                return false;
            m_owner.m_running.push_back(this);
            return true;
        }
        void stop() override
        {
            m_owner.calls.emplace_back("stop");
            std::erase(m_owner.m_running, this);
        }
        void frame() override { m_owner.handlerReturns.push_back(m_handler()); }

    private:
        FakeDisplayLinks& m_owner;
        OutputHandler m_handler;
    };

    class Source final : public DataAddSource {
    public:
        Source(FakeDisplayLinks& owner, Task handler) : m_owner(owner), m_handler(std::move(handler))
        {
            m_owner.m_sources.push_back(this);
        }
        ~Source() override { std::erase(m_owner.m_sources, this); }

        void resume() override
        {
            m_owner.calls.emplace_back("resume source");
            m_resumed = true;
        }
        void add(std::uint64_t count) override { m_count += count; }
        void cancel() override
        {
            m_owner.calls.emplace_back("cancel source");
            m_handler = nullptr;
        }
        void deliver()
        {
            if (!m_resumed || !m_handler || std::exchange(m_count, 0) == 0)
                return;
            const Task handler = m_handler; // it may cancel this source
            handler();
        }

    private:
        FakeDisplayLinks& m_owner;
        Task m_handler;
        std::uint64_t m_count = 0;
        bool m_resumed = false;
    };

    std::vector<Runner*> m_running;
    std::vector<Source*> m_sources;
};

inline void FakeDisplayLinks::frame()
{
    // By index and without a copy, so that a frame allocates nothing; ticks may end links.
    for (std::size_t i = 0; i < m_running.size(); ++i)
        m_running[i]->frame();
}

inline void FakeDisplayLinks::deliverSources()
{
    const auto sources = m_sources;
    for (Source* source : sources) {
        if (std::ranges::find(m_sources, source) != m_sources.end())
            source->deliver();
    }
}

} // namespace haloric
