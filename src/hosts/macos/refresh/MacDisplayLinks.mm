#include "hosts/macos/refresh/MacDisplayLinks.h"

#include "hosts/macos/refresh/MacDataAddSource.h"
#include "hosts/macos/refresh/MacScreenLink.h"
#include "hosts/macos/refresh/MacScreens.h"
#include "hosts/macos/refresh/MacVideoLink.h"

#include <utility>

namespace haloric {

bool MacDisplayLinks::screenLinksAvailable() const
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

std::unique_ptr<VideoDisplayLink> MacDisplayLinks::makeVideoLink(DisplayID display)
{
    return MacVideoLink::make(display);
}

std::shared_ptr<DataAddSource> MacDisplayLinks::makeDataAddSource(Task handler)
{
    return std::make_shared<MacDataAddSource>(std::move(handler));
}

} // namespace haloric
