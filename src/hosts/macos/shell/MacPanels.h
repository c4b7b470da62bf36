// The About panel and the open panel of AppKit.
#pragma once

#include "platform/Panels.h"

@class NSWindow;

namespace haloric {

class MacPanels final : public Panels {
public:
    void orderFrontStandardAboutPanel(const AboutPanel& panel) override;
    std::optional<std::string> runModalOpenPanel(const OpenPanel& panel) override;

private:
    __weak NSWindow* m_about = nullptr; // AppKit keeps it
};

} // namespace haloric
