#include "hosts/sim/windows/SimAccessibility.h"

#include "platform/AccessibilityNames.h"

#include <string>
#include <utility>

namespace haloric {

struct SimAccessibility::Element final : AXElementObject {
    enum class Part { application, window, closeButton };

    Part part;
    ProcessID pid;
    WindowNumber window;
    mutable float timeout = kDefaultTimeout; // mutable as on macOS, where it is not part of the element

    Element(Part part_, ProcessID pid_, WindowNumber window_) : part(part_), pid(pid_), window(window_) {}
};

bool SimAccessibility::isProcessTrustedWithPrompt(bool prompt)
{
    if (prompt && !m_desktop.model.trusted)
        m_desktop.journal.note(SimJournal::Kind::prompt, "the system asks for Accessibility access");
    return m_desktop.model.trusted;
}

AXElement SimAccessibility::createApplicationElement(ProcessID pid)
{
    expectQueue();
    if (pid == ProcessID::none)
        return nullptr;
    return std::make_shared<Element>(Element::Part::application, pid, WindowNumber::none);
}

void SimAccessibility::setMessagingTimeout(const AXElement& element, float seconds)
{
    expectQueue();
    static_cast<const Element&>(*element).timeout = seconds;
}

AXError SimAccessibility::talkTo(const Element& element)
{
    expectQueue();
    SimModel& model = m_desktop.model;
    if (!model.trusted)
        return AXError::apiDisabled;
    const SimApp* app = model.app(element.pid);
    if (!app || (element.part != Element::Part::application && !model.windows.find(element.window)))
        return AXError::invalidElement;
    auto& countdown = m_desktop.faults.timeoutAfterCalls;
    const bool timesOut = countdown > 0 && --countdown == 0;
    if (timesOut || !app->responsive) {
        m_desktop.runLoop.spend(Seconds(element.timeout));
        return AXError::cannotComplete;
    }
    m_desktop.runLoop.spend(kCallTime);
    return AXError::success;
}

AXAttribute SimAccessibility::copyAttribute(const AXElement& element, std::string_view name)
{
    const auto& target = static_cast<const Element&>(*element);
    if (name == AXAttributes::kFocusedWindow)
        ++m_queries;
    if (const AXError error = talkTo(target); error != AXError::success)
        return {error, {}};
    if (target.part == Element::Part::application)
        return attributeOfApplication(*m_desktop.model.app(target.pid), name);
    const SimWindow& window = *m_desktop.model.windows.find(target.window);
    return target.part == Element::Part::window ? attributeOfWindow(window, name)
                                                : attributeOfCloseButton(window, name);
}

AXAttribute SimAccessibility::attributeOfApplication(const SimApp& app, std::string_view name)
{
    if (name == AXAttributes::kRole)
        return {AXError::success, std::string(AXRoles::kApplication)};
    if (name != AXAttributes::kFocusedWindow && name != AXAttributes::kMainWindow)
        return {AXError::attributeUnsupported, {}};
    if (app.focused == WindowNumber::none)
        return {AXError::noValue, {}};
    return {AXError::success, AXElement(std::make_shared<Element>(Element::Part::window, app.pid, app.focused))};
}

AXAttribute SimAccessibility::attributeOfWindow(const SimWindow& window, std::string_view name)
{
    if (name == AXAttributes::kRole)
        return {AXError::success, window.role};
    if (name == AXAttributes::kMinimized)
        return {AXError::success, window.minimised};
    if (name == AXAttributes::kPosition)
        return {AXError::success, window.frame.origin()};
    if (name == AXAttributes::kSize)
        return {AXError::success, window.frame.size()};
    if (name != AXAttributes::kCloseButton)
        return {AXError::attributeUnsupported, {}};
    switch (window.decoration) {
    case SimDecoration::none:
        return {AXError::noValue, {}};
    case SimDecoration::client:
        return {AXError::failure, {}};
    case SimDecoration::titled:
        break;
    }
    return {AXError::success,
            AXElement(std::make_shared<Element>(Element::Part::closeButton, window.owner, window.number))};
}

AXAttribute SimAccessibility::attributeOfCloseButton(const SimWindow& window, std::string_view name)
{
    constexpr Size kButton{14, 14};
    constexpr double kLeft = 8;
    if (name == AXAttributes::kPosition) {
        return {AXError::success,
                Point{window.frame.x + kLeft, window.frame.y + (window.titleBarHeight - kButton.height) / 2}};
    }
    if (name == AXAttributes::kSize)
        return {AXError::success, kButton};
    return {AXError::attributeUnsupported, {}};
}

AXWindowNumber SimAccessibility::windowNumber(const AXElement& element)
{
    const auto& target = static_cast<const Element&>(*element);
    if (const AXError error = talkTo(target); error != AXError::success)
        return {error, WindowNumber::none};
    const SimWindow* window = m_desktop.model.windows.find(target.window);
    if (!window || window->numberUntold)
        return {AXError::failure, WindowNumber::none};
    return {AXError::success, window->number};
}

std::uint64_t SimAccessibility::hash(const AXElement& element)
{
    expectQueue();
    const auto& target = static_cast<const Element&>(*element);
    constexpr std::uint64_t kElementBit = std::uint64_t{1} << 62; // apart from any window number
    const auto part = static_cast<std::uint64_t>(target.part) << 60;
    const auto process = static_cast<std::uint64_t>(static_cast<std::uint32_t>(target.pid)) << 32;
    return (kElementBit + part + process) | static_cast<std::uint64_t>(target.window);
}

class SimAccessibility::Observer final : public AXObserver {
public:
    Observer(SimAccessibility& owner, ProcessID pid, ObserverCallback callback)
        : m_owner(owner),
          m_pid(pid),
          m_callback(std::move(callback))
    {
    }

    ~Observer() override { m_owner.expectQueue(); }

    AXError addNotification(const AXElement& element, std::string_view name) override
    {
        if (m_owner.m_desktop.faults.refusedNotifications.contains(name)) {
            m_owner.expectQueue();
            return AXError::notificationUnsupported;
        }
        const AXError error = m_owner.talkTo(static_cast<const Element&>(*element));
        if (error != AXError::success)
            return error;
        if (!m_owner.m_desktop.model.app(m_pid)->ready)
            return AXError::cannotComplete;
        m_names.insert(std::string(name));
        return AXError::success;
    }

    void addToMainRunLoop() override
    {
        m_subscription =
            m_owner.m_desktop.notifier.accessibility.subscribe([this](ProcessID pid, const std::string& name) {
                if (pid != m_pid || !m_names.contains(name))
                    return;
                const ObserverCallback callback = m_callback; // it may lead to the release of this observer
                callback(name);
            });
    }

    void removeFromMainRunLoop() override { m_subscription.reset(); }

private:
    SimAccessibility& m_owner;
    ProcessID m_pid;
    ObserverCallback m_callback;
    std::set<std::string, std::less<>> m_names;
    Subscription m_subscription;
};

std::unique_ptr<AXObserver> SimAccessibility::createObserver(ProcessID pid, ObserverCallback callback)
{
    expectQueue();
    const SimApp* app = m_desktop.model.app(pid);
    if (!app || !app->observable || !m_desktop.model.trusted)
        return nullptr;
    return std::make_unique<Observer>(*this, pid, std::move(callback));
}

} // namespace haloric
