// Makes the overlay windows, and draws them when it is asked to, once a turn of the loop. With a compositor they are
// translucent; without, they are opaque rings that show only the border and the pulse. When a compositor starts or
// ends, the windows change their kind. Main thread.
#pragma once

#include "drawing/raster/RasterResources.h"
#include "foundation/Subscription.h"
#include "hosts/linux/loop/LinuxRunLoop.h"
#include "hosts/x11/overlay/X11Compositor.h"
#include "hosts/x11/overlay/X11ImageUploader.h"
#include "hosts/x11/overlay/X11OverlayStack.h"
#include "hosts/x11/overlay/X11OverlaySurface.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/server/X11Scale.h"
#include "platform/Log.h"
#include "platform/ToolkitWindow.h"

#include <array>
#include <cstddef>
#include <vector>

namespace haloric {

// Repeats damage after a window is mapped, so that a compositor shows what was drawn right after the mapping. picom
// handles a mapping only at its next frame and discards the damage reported before; the window then stays invisible
// until the next damage. So each mapping is followed by damage of one pixel at several delays.
class X11MapDamage {
public:
    // After a mapping: a frame or two of a compositor, then longer for a busy one.
    static constexpr std::array kDelays{Seconds(0.03), Seconds(0.1), Seconds(0.4), Seconds(1.5)};

    // Both outlive it.
    X11MapDamage(X11Connection& connection, LinuxRunLoop& runLoop) : m_connection(connection), m_runLoop(runLoop) {}
    X11MapDamage(const X11MapDamage&) = delete;
    X11MapDamage& operator=(const X11MapDamage&) = delete;

    // Call after the request that maps the window. The window may be destroyed at any time.
    void mapped(xcb_window_t window);

private:
    void schedule();
    void damageAll();
    void damage(xcb_window_t window);

    X11Connection& m_connection;
    LinuxRunLoop& m_runLoop;
    std::vector<xcb_window_t> m_windows;
    std::size_t m_step = 0; // index of the next delay
    Subscription m_timer;
};

class X11ToolkitWindow;

class X11ToolkitWindows final : public ToolkitWindows {
public:
    // A compositor owns its selection before it redirects the windows; until then a translucent window would be black.
    static constexpr Seconds kCompositorTakesOver{0.25};

    // All outlive it.
    X11ToolkitWindows(X11Connection& connection, LinuxRunLoop& runLoop, X11Compositor& compositor, X11Scale& scale,
                      const X11ClientTable& clients, Log& log);

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
    void spaceChanged();
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
    Subscription m_spaceChanges;
    Subscription m_exposures;
};

} // namespace haloric
