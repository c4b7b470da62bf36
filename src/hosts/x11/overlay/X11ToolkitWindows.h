// Makes the overlay windows, and draws them when it is asked to, once a turn of the loop. With a compositor they are
// translucent; without, they are opaque rings that show only the border and the pulse. When a compositor starts or
// ends, the windows change their kind. Main thread.
#pragma once

#include "drawing/raster/RasterResources.h"
#include "hosts/x11/overlay/X11Compositor.h"
#include "hosts/x11/overlay/X11ImageUploader.h"
#include "hosts/x11/overlay/X11MapDamage.h"
#include "hosts/x11/overlay/X11OverlayStack.h"
#include "hosts/x11/overlay/X11OverlaySurface.h"
#include "hosts/x11/server/X11Scale.h"
#include "platform/Log.h"
#include "platform/ToolkitWindow.h"

#include <vector>

namespace haloric {

class X11ToolkitWindow;

class X11ToolkitWindows final : public ToolkitWindows {
public:
    // A compositor owns its selection before it redirects the windows; until then a translucent window would be black.
    static constexpr Seconds kCompositorTakesOver{0.25};

    // All outlive it.
    X11ToolkitWindows(X11Connection& connection, LinuxRunLoop& runLoop, X11Compositor& compositor,
                      const X11Scale& scale, const X11ClientTable& clients, Log& log);

    std::unique_ptr<ToolkitWindow> make(const ToolkitWindowConfiguration& configuration,
                                        const ToolkitWindowDelegate& delegate) override;

    // Restack the overlays and draw what has changed. True when a request was sent to the server.
    bool updateStack() { return m_stack.update(); }
    bool paint();

    bool areTranslucent() const { return m_translucent; }
    bool shareMemory() const { return m_uploader.sharesMemory(); }

    // Used by X11ToolkitWindow.
    void add(X11ToolkitWindow& window) { m_windows.push_back(&window); }
    void remove(X11ToolkitWindow& window) { std::erase(m_windows, &window); }
    std::unique_ptr<X11OverlaySurface> makeSurface();
    X11Connection& connection() { return m_connection; }
    X11OverlayStack& stack() { return m_stack; }
    X11Space space() const { return m_scale.current(); }

private:
    void compositorChanged();
    void setTranslucent(bool translucent);
    void explainRing();
    void expose(const xcb_generic_event_t& event);

    X11Connection& m_connection;
    LinuxRunLoop& m_runLoop;
    X11Compositor& m_compositor;
    const X11Scale& m_scale;
    Log& m_log;
    std::optional<xcb_visualid_t> m_visual;
    bool m_translucent;
    bool m_explained = false;
    X11ImageUploader m_uploader;
    RasterResources m_resources;
    X11MapDamage m_mapDamage;
    X11OverlayStack m_stack;
    std::vector<X11ToolkitWindow*> m_windows;
    Subscription m_takeOver;
    Subscription m_compositorChanges;
    Subscription m_exposures;
};

} // namespace haloric
