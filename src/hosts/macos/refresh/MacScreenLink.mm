#include "hosts/macos/refresh/MacScreenLink.h"

#include "hosts/macos/base/OwnPool.h"

#include <utility>

// What the link calls; the link keeps it until it is invalidated.
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

MacScreenLink::MacScreenLink(NSScreen* screen, Task tick)
    : m_link([screen displayLinkWithTarget:[[MacScreenLinkTarget alloc] initWithTick:std::move(tick)]
                                  selector:@selector(displayTick:)])
{
}

MacScreenLink::~MacScreenLink() { invalidate(); }

void MacScreenLink::setPreferredFrameRateRange(const FrameRateRange& range)
{
    m_link.preferredFrameRateRange = CAFrameRateRangeMake(
        static_cast<float>(range.minimum), static_cast<float>(range.maximum), static_cast<float>(range.preferred));
}

void MacScreenLink::addToMainRunLoop() { [m_link addToRunLoop:NSRunLoop.mainRunLoop forMode:NSRunLoopCommonModes]; }

void MacScreenLink::invalidate() { [m_link invalidate]; }

} // namespace haloric
