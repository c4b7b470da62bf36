#include "hosts/macos/refresh/MacDisplayLinks.h"

#include "hosts/macos/base/OwnPool.h"
#include "hosts/macos/refresh/MacScreens.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

#include <utility>

// What the link calls.
API_AVAILABLE(macos(14.0))
@interface MacScreenLinkTarget : NSObject
- (instancetype)initWithTick:(haloric::Task)tick;
- (void)displayTick:(CADisplayLink*)link;
@end

@implementation MacScreenLinkTarget {
    haloric::Task _tick;
}

- (instancetype)initWithTick:(haloric::Task)tick
{
    if ((self = [super init]))
        _tick = std::move(tick);
    return self;
}

- (void)displayTick:(CADisplayLink*)__unused link
{
    const haloric::Task tick = _tick; // it may invalidate the link, and release this object with it
    haloric::withOwnPool(tick);
}

@end

namespace haloric {
namespace {

class API_AVAILABLE(macos(14.0)) MacScreenLink final : public ScreenDisplayLink {
public:
    MacScreenLink(NSScreen* screen, Task tick)
        : m_target([[MacScreenLinkTarget alloc] initWithTick:std::move(tick)]),
          m_link([screen displayLinkWithTarget:m_target selector:@selector(displayTick:)])
    {
    }
    ~MacScreenLink() override { [m_link invalidate]; }
    MacScreenLink(const MacScreenLink&) = delete;
    MacScreenLink& operator=(const MacScreenLink&) = delete;

    void setPreferredFrameRateRange(const FrameRateRange& range) override
    {
        m_link.preferredFrameRateRange = CAFrameRateRangeMake(
            static_cast<float>(range.minimum), static_cast<float>(range.maximum), static_cast<float>(range.preferred));
    }
    void addToMainRunLoop() override { [m_link addToRunLoop:NSRunLoop.mainRunLoop forMode:NSRunLoopCommonModes]; }
    void invalidate() override { [m_link invalidate]; }

private:
    MacScreenLinkTarget* const m_target; // kept here: whether the link keeps it is not documented for screens
    CADisplayLink* const m_link;
};

} // namespace

bool MacDisplayLinks::areAvailable()
{
    if (@available(macOS 14.0, *))
        return true;
    return false;
}

std::unique_ptr<ScreenDisplayLink> MacDisplayLinks::makeScreenLink(const Screen& screen, Task tick)
{
    if (@available(macOS 14.0, *)) {
        if (NSScreen* found = MacScreens::find(screen))
            return std::make_unique<MacScreenLink>(found, std::move(tick));
    }
    return nullptr;
}

} // namespace haloric
