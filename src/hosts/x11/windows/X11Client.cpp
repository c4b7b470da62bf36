#include "hosts/x11/windows/X11Client.h"

namespace haloric {

X11Decoration X11Client::decoration() const
{
    if (geometry.shadow)
        return X11Decoration::client;
    if (!geometry.decoration)
        return X11Decoration::unknown;
    return geometry.decoration->top > 0 ? X11Decoration::windowManager : X11Decoration::none;
}

void X11ClientNotice::appendChanges(std::vector<X11ClientNotice>& notices, const X11Client& before,
                                    const X11Client& now)
{
    const auto note = [&](bool happened, X11ClientChange change) {
        if (happened)
            notices.push_back({now.pid, now.window, change});
    };
    const PixelRect old = before.visibleFrame();
    const PixelRect current = now.visibleFrame();
    note(old.x != current.x || old.y != current.y, X11ClientChange::moved);
    note(old.width != current.width || old.height != current.height, X11ClientChange::resized);
    note(before.geometry.decoration != now.geometry.decoration || before.geometry.shadow != now.geometry.shadow,
         X11ClientChange::redecorated);
    note(!before.isMinimised() && now.isMinimised(), X11ClientChange::minimised);
    note(before.isMinimised() && !now.isMinimised(), X11ClientChange::restored);
    note(before.type != now.type || before.frame != now.frame || before.desktop != now.desktop ||
             before.mapped != now.mapped || before.pid != now.pid,
         X11ClientChange::otherwise);
}

} // namespace haloric
