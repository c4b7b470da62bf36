// The program's overlay windows as NSWindow.
#pragma once

#include "platform/ToolkitWindow.h"

namespace haloric {

class MacToolkitWindows final : public ToolkitWindows {
public:
    std::unique_ptr<ToolkitWindow> make(const ToolkitWindowConfiguration& configuration,
                                        const ToolkitWindowDelegate& delegate) override;
};

} // namespace haloric
