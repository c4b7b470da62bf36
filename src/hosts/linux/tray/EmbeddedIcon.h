// An icon in a system tray of the XEmbed protocol. The display server's part of the host implements it. Main thread.
#pragma once

#include "drawing/PixelRect.h"
#include "foundation/Subscription.h"
#include "platform/Image.h"

#include <functional>
#include <memory>

namespace haloric {

class EmbeddedIcon {
public:
    // The icon's place, in pixels of the root window.
    using Handler = std::function<void(const PixelRect& place)>;

    virtual ~EmbeddedIcon() = default;

    virtual void setImage(const Image& image) = 0;

    // A visible icon is in the tray as soon as there is one, also in the next one after a tray has ended.
    virtual void setVisible(bool isVisible) = 0;

    // A mouse button was pressed on the icon.
    virtual Subscription onPress(Handler handler) = 0;

    // The pointer rests on the icon, or has left it.
    virtual Subscription onRest(Handler handler) = 0;
    virtual Subscription onLeave(Handler handler) = 0;
};

class EmbeddedIcons {
public:
    virtual ~EmbeddedIcons() = default;

    // Never null. The icon is not visible yet.
    virtual std::unique_ptr<EmbeddedIcon> make() = 0;
};

} // namespace haloric
