// CADisplayLink: the links that screens make since macOS 14.
#pragma once

#include "platform/DisplayLinks.h"

namespace haloric {

class MacDisplayLinks final : public DisplayLinks {
public:
    // False on macOS 13, where `makeScreenLink` always returns null.
    static bool areAvailable();

    std::unique_ptr<ScreenDisplayLink> makeScreenLink(const Screen& screen, Task tick) override;
};

} // namespace haloric
