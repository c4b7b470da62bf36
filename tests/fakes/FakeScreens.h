// Screens that a test lists, with a change notice that it sends.
#pragma once

#include "foundation/Publisher.h"
#include "platform/Screens.h"

#include <utility>
#include <vector>

namespace haloric {

class FakeScreens final : public Screens {
public:
    explicit FakeScreens(std::vector<Screen> screens = {}) : m_screens(std::move(screens)) {}

    std::span<const Screen> all() const override { return m_screens; }
    Subscription onParametersChange(Task handler) override { return m_changes.subscribe(std::move(handler)); }

    void set(std::vector<Screen> screens) { m_screens = std::move(screens); }
    void announceChange() { m_changes.publish(); }
    std::size_t observerCount() const { return m_changes.subscriberCount(); }

private:
    std::vector<Screen> m_screens;
    Publisher<> m_changes;
};

} // namespace haloric
