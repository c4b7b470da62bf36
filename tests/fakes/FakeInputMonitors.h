// Mouse monitors and event taps whose events a test sends, and buttons that it presses.
#pragma once

#include "foundation/Publisher.h"
#include "platform/InputMonitors.h"

#include <string>
#include <utility>
#include <vector>

namespace haloric {

class FakeInputMonitors final : public InputMonitors {
public:
    std::uint64_t pressedButtons = 0;
    std::vector<EventMask> globalMasks; // of each requested monitor
    std::vector<EventMask> localMasks;

    bool refusesTaps = false;
    std::vector<EventTapDescription> tapDescriptions; // of each requested tap
    std::vector<std::string> tapCalls;                // "addToMainRunLoop", "enable", "free"
    int liveTaps = 0;

    // An event that goes to another application, or to one of this application's windows.
    void sendGlobal(EventType event) { m_global.publish(event); }
    void sendLocal(EventType event) { m_local.publish(event); }

    // Sends to the last tap that was made, if it still exists.
    void sendToTap(const TapEvent& event)
    {
        const TapHandler handler = m_tapHandler;
        if (handler)
            handler(event);
    }

    std::size_t globalMonitorCount() const { return m_global.subscriberCount(); }
    std::size_t localMonitorCount() const { return m_local.subscriberCount(); }

    Subscription addGlobalMouseMonitor(EventMask mask, MouseHandler handler) override
    {
        globalMasks.push_back(mask);
        return subscribe(m_global, mask, std::move(handler));
    }

    Subscription addLocalMouseMonitor(EventMask mask, MouseHandler handler) override
    {
        localMasks.push_back(mask);
        return subscribe(m_local, mask, std::move(handler));
    }

    std::uint64_t pressedMouseButtons() const override { return pressedButtons; }

    std::unique_ptr<EventTap> createEventTap(const EventTapDescription& description, TapHandler handler) override
    {
        tapDescriptions.push_back(description);
        if (refusesTaps)
            return nullptr;
        m_tapHandler = std::move(handler);
        return std::make_unique<Tap>(*this);
    }

private:
    class Tap final : public EventTap {
    public:
        explicit Tap(FakeInputMonitors& owner) : m_owner(owner) { ++m_owner.liveTaps; }

        ~Tap() override
        {
            m_owner.tapCalls.emplace_back("free");
            if (--m_owner.liveTaps == 0)
                m_owner.m_tapHandler = nullptr;
        }

        void addToMainRunLoop() override { m_owner.tapCalls.emplace_back("addToMainRunLoop"); }
        void enable() override { m_owner.tapCalls.emplace_back("enable"); }

    private:
        FakeInputMonitors& m_owner;
    };

    // As on macOS, a monitor receives only the events in its mask.
    static Subscription subscribe(Publisher<EventType>& publisher, EventMask mask, MouseHandler handler)
    {
        return publisher.subscribe([mask, handler = std::move(handler)](EventType event) {
            if ((mask & maskOf(event)) != 0)
                handler(event);
        });
    }

    Publisher<EventType> m_global;
    Publisher<EventType> m_local;
    TapHandler m_tapHandler;
};

} // namespace haloric
