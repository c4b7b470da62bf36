#include "menubar/UpdaterManager.h"

#include "platform/Bundle.h"

namespace haloric {

UpdaterManager::UpdaterManager(const Bundle& bundle, UpdaterFramework& framework)
{
    if (!bundle.path().ends_with(".app") || !bundle.hasInfo("SUFeedURL"))
        return;
    m_controller = framework.makeStandardController(true, m_gate);
    m_gate.controller = m_controller;
}

} // namespace haloric
