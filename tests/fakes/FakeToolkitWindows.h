// A windowing toolkit in memory. It numbers its windows, keeps their order, and records every call.
#pragma once

#include "fakes/FakeToolkitWindow.h"
#include "foundation/Task.h"
#include "platform/ToolkitWindow.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace haloric {

class FakeToolkitWindows final : public ToolkitWindows {
public:
    using Record = std::shared_ptr<FakeToolkitWindow>;

    std::int64_t nextNumber = 101;
    std::vector<Record> windows;           // every window that was ever made, in order
    std::vector<FakeToolkitWindow*> stack; // the visible ones, back to front
    bool recordsCalls = true;              // off: calls cost no allocation
    Task whileMaking;                      // runs inside make

    std::unique_ptr<ToolkitWindow> make(const ToolkitWindowConfiguration& configuration,
                                        const ToolkitWindowDelegate& delegate) override
    {
        if (whileMaking)
            whileMaking();
        auto record = std::make_shared<FakeToolkitWindow>();
        record->configuration = configuration;
        record->delegate = &delegate;
        record->frame = configuration.contentRect;
        record->number = nextNumber++;
        windows.push_back(record);
        return std::make_unique<Window>(*this, std::move(record));
    }

    void forgetCalls()
    {
        for (const Record& window : windows) {
            window->calls.clear();
            window->displayedParts.clear();
        }
    }

private:
    class Window final : public ToolkitWindow {
    public:
        Window(FakeToolkitWindows& owner, Record record) : m_owner(owner), m_record(std::move(record)) {}

        ~Window() override
        {
            m_record->alive = false;
            std::erase(m_owner.stack, m_record.get());
        }

        Rect frame() const override { return m_record->frame; }

        void setFrame(const Rect& frame, bool display) override
        {
            note("setFrame");
            m_record->frame = frame;
            m_record->displayedBySetFrame |= display;
        }

        void setFrameOrigin(Point origin) override
        {
            note("setFrameOrigin");
            m_record->frame.x = origin.x;
            m_record->frame.y = origin.y;
        }

        bool isVisible() const override { return m_record->visible; }

        void orderFront() override
        {
            note("orderFront");
            m_record->visible = true;
            std::erase(m_owner.stack, m_record.get());
            m_owner.stack.push_back(m_record.get());
        }

        void orderOut() override
        {
            note("orderOut");
            m_record->visible = false;
            std::erase(m_owner.stack, m_record.get());
        }

        std::int64_t windowNumber() const override { return m_record->number; }

        void setContentView(ContentView& view) override
        {
            note("setContentView");
            m_record->contentView = &view;
        }

        void setNeedsDisplay() override { note("display"); }

        void setNeedsDisplay(std::span<const Rect> parts) override
        {
            note("display parts");
            if (m_owner.recordsCalls)
                m_record->displayedParts.emplace_back(parts.begin(), parts.end());
        }

    private:
        void note(const char* call)
        {
            if (m_owner.recordsCalls)
                m_record->calls.emplace_back(call);
        }

        FakeToolkitWindows& m_owner;
        Record m_record;
    };
};

} // namespace haloric
