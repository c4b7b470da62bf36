#include "hosts/sim/desktop/SimFocus.h"

#include "platform/AccessibilityNames.h"

namespace haloric {

void SimFocus::setFrontmost(const SimApp* app)
{
    const ProcessID pid = app ? app->pid : ProcessID::none;
    if (m_model.frontmost == pid)
        return;
    m_model.frontmost = pid;
    if (app)
        m_notifier.postWorkspace(WorkspaceNotification::didActivateApplication);
}

void SimFocus::setFocused(SimApp& app, const SimWindow* window)
{
    const WindowNumber number = window ? window->number : WindowNumber::none;
    if (app.focused == number)
        return;
    app.focused = number;
    m_notifier.postAccessibility(app.pid, AXNotifications::kFocusedWindowChanged);
    m_notifier.postAccessibility(app.pid, AXNotifications::kMainWindowChanged);
}

void SimFocus::settle()
{
    for (const auto& app : m_model.apps) {
        const SimWindow* focused = m_model.windows.find(app->focused);
        // A hidden application keeps its focus for the time when it is shown again.
        if (app->hidden && focused && !focused->minimised)
            continue;
        if (!focused || !m_model.isFocusable(*focused))
            setFocused(*app, m_model.topFocusable(app->pid));
    }
    const SimApp* frontmost = m_model.frontmostApp();
    if (frontmost && !frontmost->hidden)
        return;
    const SimApp* next = ownerOfFrontWindow();
    if (next || !frontmost)
        setFrontmost(next);
}

void SimFocus::followFrontWindow()
{
    if (const SimApp* next = ownerOfFrontWindow())
        setFrontmost(next);
}

const SimApp* SimFocus::ownerOfFrontWindow() const
{
    for (const auto& window : m_model.windows.frontToBack()) {
        if (window->layer == 0 && m_model.isFocusable(*window))
            return m_model.app(window->owner);
    }
    return nullptr;
}

} // namespace haloric
