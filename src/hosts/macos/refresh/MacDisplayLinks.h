// Display links of both generations, and the dispatch source that carries frames to the main thread.
#pragma once

#include "platform/DisplayLinks.h"

namespace haloric {

class MacDisplayLinks final : public DisplayLinks {
public:
    bool screenLinksAvailable() const override;
    std::unique_ptr<ScreenDisplayLink> makeScreenLink(const Screen& screen, Task tick) override;
    std::unique_ptr<VideoDisplayLink> makeVideoLink(DisplayID display) override;
    std::shared_ptr<DataAddSource> makeDataAddSource(Task handler) override;
};

} // namespace haloric
