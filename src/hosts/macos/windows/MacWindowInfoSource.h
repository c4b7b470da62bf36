// The window list of Core Graphics.
#pragma once

#include "platform/WindowInfoSource.h"

namespace haloric {

class MacWindowInfoSource final : public WindowInfoSource {
public:
    std::optional<std::vector<WindowInfo>> copyWindowInfo(WindowListOptions options, WindowNumber relativeTo) override;
};

} // namespace haloric
