// The window system's display link of one screen.
#pragma once

#include "platform/DisplayLinks.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

namespace haloric {

class API_AVAILABLE(macos(14.0)) MacScreenLink final : public ScreenDisplayLink {
public:
    MacScreenLink(NSScreen* screen, Task tick);
    ~MacScreenLink() override;
    MacScreenLink(const MacScreenLink&) = delete;
    MacScreenLink& operator=(const MacScreenLink&) = delete;

    void setPreferredFrameRateRange(const FrameRateRange& range) override;
    void addToMainRunLoop() override;
    void invalidate() override;

private:
    CADisplayLink* m_link;
};

} // namespace haloric
