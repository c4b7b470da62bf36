// An update framework that finds no updates; checks are noted in the journal.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/UpdaterFramework.h"

namespace haloric {

class SimUpdaterFramework final : public UpdaterFramework {
public:
    explicit SimUpdaterFramework(SimDesktop& desktop) : m_desktop(desktop) {}

    std::shared_ptr<UpdaterController> makeStandardController(bool startingUpdater, UpdaterDelegate&) override
    {
        if (startingUpdater)
            m_desktop.journal.note(SimJournal::Kind::shell, "updater started");
        return std::make_shared<Controller>(m_desktop);
    }

private:
    class Controller final : public UpdaterController {
    public:
        explicit Controller(SimDesktop& desktop) : m_desktop(desktop) {}

        void checkForUpdates() override
        {
            m_desktop.journal.note(SimJournal::Kind::shell, "updates looked for, none found");
        }

    private:
        SimDesktop& m_desktop;
    };

    SimDesktop& m_desktop;
};

} // namespace haloric
