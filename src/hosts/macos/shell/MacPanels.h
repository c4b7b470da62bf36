// The About panel and the open panel of AppKit.
#pragma once

#include "platform/Panels.h"

namespace haloric {

class MacPanels final : public Panels {
public:
    void orderFrontStandardAboutPanel(const AboutPanel& panel) override;
    std::optional<std::string> runModalOpenPanel(const OpenPanel& panel) override;
};

} // namespace haloric
