// Windows with forms in memory. They note what is called, and what they show.
#pragma once

#include "foundation/Task.h"
#include "platform/FormWindows.h"

#include <string>
#include <utility>
#include <vector>

namespace haloric {

class FakeFormWindows final : public FormWindows {
public:
    struct Record {
        FormWindowConfiguration configuration;
        FormModel form;
        std::vector<std::string> calls;
        bool visible = false;
        bool alive = true;
    };

    Task whileMaking;        // runs inside make
    Task whileOrderingFront; // runs inside makeKeyAndOrderFront
    std::vector<std::shared_ptr<Record>> windows;

    std::unique_ptr<FormWindow> make(const FormWindowConfiguration& configuration, const FormModel& form) override
    {
        if (whileMaking)
            whileMaking();
        windows.push_back(std::make_shared<Record>());
        windows.back()->configuration = configuration;
        windows.back()->form = form;
        return std::make_unique<Window>(*this, windows.back());
    }

private:
    class Window final : public FormWindow {
    public:
        Window(const FakeFormWindows& owner, std::shared_ptr<Record> record)
            : m_owner(owner),
              m_record(std::move(record))
        {
        }
        ~Window() override { m_record->alive = false; }

        void setForm(const FormModel& form) override
        {
            m_record->calls.emplace_back("setForm");
            m_record->form = form;
        }

        void center() override { m_record->calls.emplace_back("center"); }

        void makeKeyAndOrderFront() override
        {
            m_record->calls.emplace_back("makeKeyAndOrderFront");
            m_record->visible = true;
            if (m_owner.whileOrderingFront)
                m_owner.whileOrderingFront();
        }

        bool isVisible() const override { return m_record->visible; }

    private:
        const FakeFormWindows& m_owner;
        std::shared_ptr<Record> m_record;
    };
};

} // namespace haloric
