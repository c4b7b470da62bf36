#include "hosts/x11/windows/X11Accessibility.h"

#include "hosts/x11/windows/X11AccessibilityObserver.h"
#include "platform/AccessibilityNames.h"

#include <utility>

namespace haloric {

namespace {

using Kind = X11AccessibilityElement::Kind;

constexpr AXAttribute kUnsupported{AXError::attributeUnsupported, {}};
constexpr AXAttribute kNoValue{AXError::noValue, {}};
constexpr AXAttribute kUnknown{AXError::failure, {}};
constexpr AXAttribute kInvalid{AXError::invalidElement, {}};

AXAttribute success(AXValue value) { return {AXError::success, std::move(value)}; }

AXAttribute elementOf(const X11Client* client, Kind kind)
{
    if (!client)
        return kNoValue;
    return success(AXElement(std::make_shared<X11AccessibilityElement>(kind, client->pid, client->window)));
}

const X11AccessibilityElement* unwrapped(const AXElement& element)
{
    return dynamic_cast<const X11AccessibilityElement*>(element.get());
}

std::string roleOf(const X11Client& client)
{
    return std::string(client.isForWork() ? AXRoles::kWindow : AXRoles::kUnknown);
}

} // namespace

AXElement X11Accessibility::createApplicationElement(ProcessID pid)
{
    if (pid == ProcessID::none)
        return nullptr;
    return std::make_shared<X11AccessibilityElement>(Kind::application, pid, XCB_WINDOW_NONE);
}

AXAttribute X11Accessibility::copyAttribute(const AXElement& element, std::string_view name)
{
    const X11AccessibilityElement* target = unwrapped(element);
    if (!target)
        return kInvalid;
    if (target->kind() == Kind::application)
        return applicationAttribute(*target, name);
    const X11Client* client = m_clients.table().find(target->window());
    if (!client)
        return kInvalid;
    return target->kind() == Kind::window ? windowAttribute(*client, name) : closeButtonAttribute(*client, name);
}

AXAttribute X11Accessibility::applicationAttribute(const X11AccessibilityElement& element, std::string_view name) const
{
    if (name == AXAttributes::kFocusedWindow) {
        const X11Client* active = m_clients.table().active();
        return active && active->pid == element.pid() ? elementOf(active, Kind::window) : kNoValue;
    }
    if (name == AXAttributes::kMainWindow)
        return elementOf(m_clients.table().mainWindow(element.pid()), Kind::window);
    return kUnsupported;
}

AXAttribute X11Accessibility::windowAttribute(const X11Client& client, std::string_view name) const
{
    const Rect bounds = m_scale.current().toGlobal(client.visibleFrame());
    if (name == AXAttributes::kRole)
        return success(roleOf(client));
    if (name == AXAttributes::kMinimized)
        return success(!client.isShown()); // an unmapped window counts as minimised: there is nothing to highlight
    if (name == AXAttributes::kPosition)
        return success(bounds.origin());
    if (name == AXAttributes::kSize)
        return success(bounds.size());
    if (name == AXAttributes::kCloseButton)
        return closeButton(client);
    return kUnsupported;
}

AXAttribute X11Accessibility::closeButton(const X11Client& client) const
{
    switch (client.decoration()) {
    case X11Decoration::windowManager:
        return elementOf(&client, Kind::closeButton);
    case X11Decoration::none:
        return kNoValue;
    case X11Decoration::client:
        return kUnknown; // no property has the height of a title bar that the client draws
    case X11Decoration::unknown:
        break;
    }
    return m_windowManager.reportsDecoration() ? kNoValue : kUnknown;
}

// A square half as tall as the title bar, in its middle: the title bar's height follows from its centre.
AXAttribute X11Accessibility::closeButtonAttribute(const X11Client& client, std::string_view name) const
{
    if (client.decoration() != X11Decoration::windowManager)
        return kInvalid;
    const X11Space space = m_scale.current();
    const Rect bounds = space.toGlobal(client.visibleFrame());
    const double height = client.geometry.decoration->top / space.pixelsPerPoint;
    const double side = height / 2;
    if (name == AXAttributes::kPosition)
        return success(Point{bounds.x + (bounds.width - side) / 2, bounds.y + (height - side) / 2});
    if (name == AXAttributes::kSize)
        return success(Size{side, side});
    if (name == AXAttributes::kRole)
        return success(std::string(AXRoles::kButton));
    return kUnsupported;
}

AXWindowNumber X11Accessibility::windowNumber(const AXElement& element)
{
    const X11AccessibilityElement* target = unwrapped(element);
    if (!target || target->kind() != Kind::window)
        return {AXError::failure, WindowNumber::none};
    return {AXError::success, static_cast<WindowNumber>(target->window())};
}

std::uint64_t X11Accessibility::hash(const AXElement& element)
{
    constexpr int kKindShift = 60;
    const X11AccessibilityElement* target = unwrapped(element);
    if (!target)
        return 0;
    const std::uint64_t subject = target->kind() == Kind::application
                                      ? std::uint64_t{static_cast<std::uint32_t>(target->pid())}
                                      : std::uint64_t{target->window()};
    return subject | (static_cast<std::uint64_t>(target->kind()) + 1) << kKindShift;
}

std::unique_ptr<AXObserver> X11Accessibility::createObserver(ProcessID pid, ObserverCallback callback)
{
    if (pid == ProcessID::none)
        return nullptr;
    return std::make_unique<X11AccessibilityObserver>(m_runLoop, m_clients, pid, std::move(callback));
}

} // namespace haloric
