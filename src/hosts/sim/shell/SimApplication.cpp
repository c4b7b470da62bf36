#include "hosts/sim/shell/SimApplication.h"

#include <string>
#include <utility>

namespace haloric {

void SimApplication::setActivationPolicy(ActivationPolicy policy)
{
    m_policy = policy;
    m_desktop.journal.note(SimJournal::Kind::application,
                           "activation policy " + std::to_string(static_cast<int>(policy)));
}

void SimApplication::activateIgnoringOtherApps()
{
    m_desktop.journal.note(SimJournal::Kind::application, "comes to the front");
    m_desktop.applications.activate(*m_desktop.model.app(SimModel::kOwnProcess));
}

void SimApplication::run()
{
    if (m_delegate)
        m_delegate->applicationDidFinishLaunching();
}

void SimApplication::terminate()
{
    if (std::exchange(m_terminated, true))
        return;
    if (m_delegate)
        m_delegate->applicationWillTerminate();
    m_desktop.journal.note(SimJournal::Kind::application, "terminated");
}

void SimApplication::reopen()
{
    if (m_delegate)
        m_delegate->applicationShouldHandleReopen(false);
}

std::optional<OwnWindow> SimApplication::keyWindow() const
{
    const SimModel& model = m_desktop.model;
    if (model.frontmost != SimModel::kOwnProcess)
        return std::nullopt;
    const SimWindow* window = model.windows.find(model.app(SimModel::kOwnProcess)->focused);
    if (!window)
        return std::nullopt;
    const double titleBar = window->decoration == SimDecoration::none ? 0 : window->titleBarHeight;
    return OwnWindow{model.flipped(window->frame), window->frame.height - titleBar,
                     static_cast<std::int64_t>(window->number), model.isOnScreen(*window), window->overlay};
}

} // namespace haloric
