// Panels that answer at once, as a test decides.
#pragma once

#include "foundation/Task.h"
#include "platform/Panels.h"

#include <vector>

namespace haloric {

class FakePanels final : public Panels {
public:
    std::optional<std::string> chosenPath; // absent: the user cancels
    std::vector<AboutPanel> aboutPanels;
    std::vector<OpenPanel> openPanels;
    Task whileAboutShown; // runs when the about panel is ordered front
    Task whileOpen;       // runs while the open panel is up

    void orderFrontStandardAboutPanel(const AboutPanel& panel) override
    {
        aboutPanels.push_back(panel);
        if (whileAboutShown)
            whileAboutShown();
    }

    std::optional<std::string> runModalOpenPanel(const OpenPanel& panel) override
    {
        openPanels.push_back(panel);
        if (whileOpen)
            whileOpen();
        return chosenPath;
    }
};

} // namespace haloric
