// The older video display link of one display, which calls on a thread of its own.
#pragma once

#include "hosts/macos/base/CFOwned.h"
#include "platform/DisplayLinks.h"

#import <CoreVideo/CoreVideo.h>

#include <mutex>

namespace haloric {

class MacVideoLink final : public VideoDisplayLink {
public:
    // Null when the display number is unknown.
    static std::unique_ptr<MacVideoLink> make(DisplayID display);

    explicit MacVideoLink(CFOwned<CVDisplayLinkRef> link);
    ~MacVideoLink() override;
    MacVideoLink(const MacVideoLink&) = delete;
    MacVideoLink& operator=(const MacVideoLink&) = delete;

    bool setOutputHandler(OutputHandler handler) override;
    bool start() override;
    void stop() override;

private:
    // Shared with the link's thread, so that no frame is under way once `stop` has returned, whatever the system does.
    struct Gate {
        std::mutex lock;
        bool open = true;
    };

    CFOwned<CVDisplayLinkRef> m_link;
    std::shared_ptr<Gate> m_gate = std::make_shared<Gate>();
};

} // namespace haloric
