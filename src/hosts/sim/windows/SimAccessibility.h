// Accessibility of the simulated desktop. Calls take virtual time (SimRunLoop::spend): kCallTime each, or the whole
// messaging timeout when the application does not respond.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "hosts/sim/loop/SimSerialQueues.h"
#include "platform/Accessibility.h"

#include <cstdint>

namespace haloric {

class SimAccessibility final : public Accessibility {
public:
    static constexpr Seconds kCallTime{0.0001};
    static constexpr float kDefaultTimeout = 6; // seconds, where none was set

    SimAccessibility(SimDesktop& desktop, const SimSerialQueues& queues) : m_desktop(desktop), m_queues(queues) {}

    bool isProcessTrusted() const override { return m_desktop.model.trusted; }
    bool isProcessTrustedWithPrompt(bool prompt) override;
    AXElement createApplicationElement(ProcessID pid) override;
    void setMessagingTimeout(const AXElement& element, float seconds) override;
    AXAttribute copyAttribute(const AXElement& element, std::string_view name) override;
    AXWindowNumber windowNumber(const AXElement& element) override;
    std::uint64_t hash(const AXElement& element) override;
    std::unique_ptr<AXObserver> createObserver(ProcessID pid, ObserverCallback callback) override;

    // Calls outside a background queue's block, although they may block.
    std::uint64_t misplacedCalls() const { return m_misplacedCalls; }

    // How often the focused window was read: once a query.
    std::uint64_t queries() const { return m_queries; }

private:
    class Observer;
    struct Element;

    AXError talkTo(const Element& element); // success when the application answers
    AXAttribute attributeOfApplication(const SimApp& app, std::string_view name);
    AXAttribute attributeOfWindow(const SimWindow& window, std::string_view name);
    static AXAttribute attributeOfCloseButton(const SimWindow& window, std::string_view name);
    void expectQueue() { m_misplacedCalls += m_queues.isInsideBlock() ? 0 : 1; }

    SimDesktop& m_desktop;
    const SimSerialQueues& m_queues;
    std::uint64_t m_misplacedCalls = 0;
    std::uint64_t m_queries = 0;
};

} // namespace haloric
