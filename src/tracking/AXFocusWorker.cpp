#include "tracking/AXFocusWorker.h"

#include "platform/AccessibilityNames.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

constexpr double kSmallestTitleBar = 20; // points; limits for windows with an unusual close button
constexpr double kLargestTitleBar = 60;

bool hasValue(const AXAttribute& attribute)
{
    return attribute.error == AXError::success && !std::holds_alternative<std::monostate>(attribute.value);
}

bool isFinite(const Point& point) { return std::isfinite(point.x) && std::isfinite(point.y); }
bool isFinite(const Size& size) { return std::isfinite(size.width) && std::isfinite(size.height); }

// The element that the attribute gives; null for an error, no value, or a value of another type.
AXElement elementOf(const AXAttribute& attribute)
{
    const auto* element = std::get_if<AXElement>(&attribute.value);
    return attribute.error == AXError::success && element ? *element : nullptr;
}

} // namespace

AXFocusWorker::QueryResult AXFocusWorker::query(ProcessID pid, std::uint64_t titleBarRevision)
{
    if (!attach(pid))
        return NoWindow{};

    const WindowResult result = focusedWindow();
    if (std::holds_alternative<Unavailable>(result))
        return Unavailable{};
    const auto* found = std::get_if<AXElement>(&result);
    if (!found || !*found)
        return NoWindow{};
    const AXElement& window = *found;
    m_accessibility.setMessagingTimeout(window, kTimeoutSeconds);

    if (const auto reason = reasonToIgnore(window))
        return *reason;
    Snapshot snapshot = identify(window);
    snapshot.titleBar = titleBar(window, snapshot.identity, titleBarRevision);
    return snapshot;
}

void AXFocusWorker::reset()
{
    m_app = nullptr;
    m_pid = ProcessID::none;
    m_measuredTitleBar.reset();
}

// Creates the application element, unless it already belongs to `pid`.
bool AXFocusWorker::attach(ProcessID pid)
{
    if (pid == m_pid && m_app)
        return true;
    m_measuredTitleBar.reset();
    m_pid = pid;
    m_app = m_accessibility.createApplicationElement(pid);
    if (m_app)
        m_accessibility.setMessagingTimeout(m_app, kTimeoutSeconds);
    return m_app != nullptr;
}

// Null if the value is not an element.
AXFocusWorker::WindowResult AXFocusWorker::focusedWindow()
{
    for (const std::string_view name : {AXAttributes::kFocusedWindow, AXAttributes::kMainWindow}) {
        const AXAttribute attribute = m_accessibility.copyAttribute(m_app, name);
        if (attribute.error == AXError::cannotComplete)
            return Unavailable{};
        if (hasValue(attribute))
            return elementOf(attribute);
    }
    return NoWindow{};
}

// Sheets, drawers and other focused elements are not highlighted, nor is a minimised window.
std::optional<AXFocusWorker::QueryResult> AXFocusWorker::reasonToIgnore(const AXElement& window)
{
    const AXAttribute role = m_accessibility.copyAttribute(window, AXAttributes::kRole);
    if (role.error == AXError::cannotComplete)
        return Unavailable{};
    const auto* roleName = std::get_if<std::string>(&role.value);
    if (role.error != AXError::success || !roleName || *roleName != AXRoles::kWindow)
        return NoWindow{};

    const AXAttribute minimised = m_accessibility.copyAttribute(window, AXAttributes::kMinimized);
    if (minimised.error == AXError::cannotComplete)
        return Unavailable{};
    const auto* isMinimised = std::get_if<bool>(&minimised.value);
    if (minimised.error == AXError::success && isMinimised && *isMinimised)
        return NoWindow{};
    return std::nullopt;
}

// Bounds are read only for a window without a number; the window server reports those of all others.
AXFocusWorker::Snapshot AXFocusWorker::identify(const AXElement& window)
{
    Snapshot snapshot;
    const AXWindowNumber number = m_accessibility.windowNumber(window);
    if (number.error == AXError::success && number.number != WindowNumber::none) {
        snapshot.windowID = number.number;
        snapshot.identity = identityOf(number.number);
        return snapshot;
    }
    snapshot.identity = static_cast<WindowIdentity>(m_accessibility.hash(window));
    const auto position = axValue<Point>(window, AXAttributes::kPosition);
    const auto size = position ? axValue<Size>(window, AXAttributes::kSize) : std::nullopt;
    if (size)
        snapshot.axBounds = Rect{position->x, position->y, size->width, size->height};
    return snapshot;
}

FocusState::TitleBar AXFocusWorker::titleBar(const AXElement& window, WindowIdentity identity, std::uint64_t revision)
{
    const bool known = m_measuredTitleBar && m_measuredTitleBar->id == identity &&
                       m_measuredTitleBar->revision == revision &&
                       m_measuredTitleBar->value.kind() != FocusState::TitleBar::Kind::unknown;
    if (!known)
        m_measuredTitleBar = {identity, revision, measureTitleBar(window)};
    return m_measuredTitleBar->value;
}

FocusState::TitleBar AXFocusWorker::measureTitleBar(const AXElement& window)
{
    const AXAttribute attribute = m_accessibility.copyAttribute(window, AXAttributes::kCloseButton);
    if (attribute.error == AXError::noValue || attribute.error == AXError::attributeUnsupported)
        return FocusState::TitleBar::none();
    const AXElement button = elementOf(attribute);
    if (!button)
        return FocusState::TitleBar::unknown();
    m_accessibility.setMessagingTimeout(button, kTimeoutSeconds);

    // After a failed read the remaining ones are skipped: each might wait for the whole timeout.
    const auto position = axValue<Point>(button, AXAttributes::kPosition);
    const auto size = position ? axValue<Size>(button, AXAttributes::kSize) : std::nullopt;
    const auto windowPosition = size ? axValue<Point>(window, AXAttributes::kPosition) : std::nullopt;
    if (!windowPosition)
        return FocusState::TitleBar::unknown();

    const double centreFromTop = position->y + size->height * 0.5 - windowPosition->y;
    if (centreFromTop <= 0)
        return FocusState::TitleBar::none();
    return FocusState::TitleBar::height(std::clamp(2 * centreFromTop, kSmallestTitleBar, kLargestTitleBar));
}

template <class T>
std::optional<T> AXFocusWorker::axValue(const AXElement& element, std::string_view name)
{
    const AXAttribute attribute = m_accessibility.copyAttribute(element, name);
    const auto* value = std::get_if<T>(&attribute.value);
    return attribute.error == AXError::success && value && isFinite(*value) ? std::optional(*value) : std::nullopt;
}

} // namespace haloric
