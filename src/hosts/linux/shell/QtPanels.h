// The About panel, and the panel that chooses an application. Main thread.
#pragma once

#include "platform/Panels.h"

#include <memory>

namespace haloric {

class QtAboutPanel;

class QtPanels final : public Panels {
public:
    QtPanels();
    ~QtPanels() override;

    void orderFrontStandardAboutPanel(const AboutPanel& panel) override;

    // Applications are files in one folder on the platform that the panel is named after. Here they are wherever their
    // desktop entries are: it lists them all, and the folder says nothing. The path of the entry that was chosen.
    std::optional<std::string> runModalOpenPanel(const OpenPanel& panel) override;

private:
    std::unique_ptr<QtAboutPanel> m_about; // made when it is shown first
};

} // namespace haloric
