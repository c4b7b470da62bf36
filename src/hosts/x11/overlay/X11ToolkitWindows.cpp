#include "hosts/x11/overlay/X11ToolkitWindows.h"

#include "hosts/x11/overlay/X11ClickThroughWindow.h"
#include "hosts/x11/overlay/X11OverlaySurface.h"
#include "hosts/x11/overlay/X11ToolkitWindow.h"

#include <algorithm>

namespace haloric {

void X11MapDamage::mapped(xcb_window_t window)
{
    if (std::ranges::find(m_windows, window) == m_windows.end())
        m_windows.push_back(window);
    m_step = 0;
    schedule();
}

void X11MapDamage::schedule()
{
    m_timer = m_runLoop.scheduleOnce(kDelays.at(m_step), [this] { damageAll(); });
}

void X11MapDamage::damageAll()
{
    for (const xcb_window_t window : m_windows)
        damage(window);
    m_connection.flush();
    if (++m_step < kDelays.size())
        schedule();
    else
        m_windows.clear();
}

// Copying a pixel onto itself changes nothing and is reported as damage.
void X11MapDamage::damage(xcb_window_t window)
{
    xcb_connection_t* raw = m_connection.raw();
    const xcb_gcontext_t context = xcb_generate_id(raw);
    const std::uint32_t withoutExposures = 0;
    xcb_create_gc(raw, context, window, XCB_GC_GRAPHICS_EXPOSURES, &withoutExposures);
    xcb_copy_area(raw, window, window, context, 0, 0, 0, 0, 1, 1);
    xcb_free_gc(raw, context);
}

X11ToolkitWindows::X11ToolkitWindows(X11Connection& connection, LinuxRunLoop& runLoop, X11Compositor& compositor,
                                     X11Scale& scale, const X11ClientTable& clients, Log& log)
    : m_connection(connection),
      m_runLoop(runLoop),
      m_compositor(compositor),
      m_scale(scale),
      m_log(log),
      m_visual(X11ClickThroughWindow::findTranslucentVisual(connection)),
      m_translucent(m_visual && compositor.isRunning()),
      m_uploader(connection),
      m_mapDamage(connection, runLoop),
      m_stack(connection, clients)
{
    m_stack.onMapped([this](xcb_window_t window) {
        if (m_translucent)
            m_mapDamage.mapped(window);
    });
    m_compositorChanges = compositor.onChange([this] { compositorChanged(); });
    m_spaceChanges = scale.onChange([this] { spaceChanged(); });
    m_exposures = connection.onEvent(XCB_EXPOSE, [this](const auto& event) { expose(event); });
}

std::unique_ptr<ToolkitWindow> X11ToolkitWindows::make(const ToolkitWindowConfiguration& configuration,
                                                       const ToolkitWindowDelegate& delegate)
{
    if (!m_translucent)
        explainRing();
    return std::make_unique<X11ToolkitWindow>(*this, configuration, delegate);
}

std::unique_ptr<X11OverlaySurface> X11ToolkitWindows::makeSurface()
{
    if (m_translucent)
        return std::make_unique<X11BlendedSurface>(m_connection, *m_visual, m_uploader, m_resources);
    return std::make_unique<X11RingSurface>(m_connection);
}

void X11ToolkitWindows::compositorChanged()
{
    m_takeOver.reset();
    if (!m_compositor.isRunning())
        setTranslucent(false);
    else if (m_visual)
        m_takeOver = m_runLoop.scheduleOnce(kCompositorTakesOver, [this] { setTranslucent(true); });
}

void X11ToolkitWindows::spaceChanged()
{
    for (X11ToolkitWindow* window : m_windows)
        window->placeAgain();
}

void X11ToolkitWindows::setTranslucent(bool translucent)
{
    if (translucent == m_translucent)
        return;
    m_translucent = translucent;
    if (!translucent)
        explainRing();
    for (X11ToolkitWindow* window : m_windows)
        window->renewSurface();
}

void X11ToolkitWindows::explainRing()
{
    if (std::exchange(m_explained, true))
        return;
    m_log.line(m_visual ? "No compositor is running: showing the border and the pulse, without glow, tint and dimming"
                        : "The screen has no translucent windows: showing the border and the pulse, without glow, tint "
                          "and dimming");
}

bool X11ToolkitWindows::paint()
{
    bool worked = false;
    for (X11ToolkitWindow* window : m_windows)
        worked = window->paint() || worked;
    return worked;
}

void X11ToolkitWindows::expose(const xcb_generic_event_t& event)
{
    const auto& exposed = eventAs<xcb_expose_event_t>(event);
    const auto found = std::ranges::find_if(
        m_windows, [&exposed](const X11ToolkitWindow* window) { return window->window() == exposed.window; });
    if (found != m_windows.end())
        (*found)->expose({exposed.x, exposed.y, exposed.width, exposed.height}, event.full_sequence);
}

} // namespace haloric
