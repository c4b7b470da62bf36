// Alerts beside the program's windows that stay open until a test answers them.
#pragma once

#include "hosts/linux/update/UpdaterDependencies.h"

#include <utility>
#include <vector>

namespace haloric {

class FakeModelessAlerts final : public ModelessAlerts {
public:
    std::vector<AlertModel> shown;
    bool isOpen = false;

    Subscription show(const AlertModel& alert, Answer answer) override
    {
        shown.push_back(alert);
        isOpen = true;
        m_answer = std::move(answer);
        return Subscription([this] {
            isOpen = false;
            m_answer = nullptr;
        });
    }

    // Presses the button of the open alert.
    void press(std::size_t button)
    {
        if (const Answer answer = m_answer)
            answer(button);
    }

private:
    Answer m_answer;
};

} // namespace haloric
