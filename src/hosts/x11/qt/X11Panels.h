// The About panel, and the panel that chooses an application. Main thread.
#pragma once

#include "platform/Panels.h"

#include <memory>

namespace haloric {

class X11AboutPanel;

class X11Panels final : public Panels {
public:
    X11Panels();
    ~X11Panels() override;

    void orderFrontStandardAboutPanel(const AboutPanel& panel) override;

    // Applications are files in one folder on the platform that the panel is named after. Here they are wherever their
    // desktop entries are: it lists them all, and the folder says nothing. The path of the entry that was chosen.
    std::optional<std::string> runModalOpenPanel(const OpenPanel& panel) override;

private:
    std::unique_ptr<X11AboutPanel> m_about; // made when it is shown first
};

} // namespace haloric
