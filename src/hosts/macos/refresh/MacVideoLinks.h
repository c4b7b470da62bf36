// CVDisplayLink and dispatch sources, for macOS 13.
#pragma once

#include "platform/VideoLinks.h"

namespace haloric {

class MacVideoLinks final : public VideoLinks {
public:
    std::unique_ptr<VideoDisplayLink> makeVideoLink(DisplayID display) override;
    std::shared_ptr<DataAddSource> makeDataAddSource(Task handler) override;
};

} // namespace haloric
