#include "hosts/x11/overlay/X11ToolkitWindow.h"

#include "hosts/x11/overlay/X11ToolkitWindows.h"

#include <utility>

namespace haloric {

X11ToolkitWindow::X11ToolkitWindow(X11ToolkitWindows& windows, const ToolkitWindowConfiguration& configuration,
                                   const ToolkitWindowDelegate& delegate)
    : m_windows(windows),
      m_delegate(delegate),
      m_surface(windows.makeSurface())
{
    m_windows.add(*this);
    setFrame(configuration.contentRect, false); // borderless: the content is all of the frame
}

X11ToolkitWindow::~X11ToolkitWindow()
{
    m_windows.remove(*this);
    m_windows.stack().orderOut(m_surface->window());
}

void X11ToolkitWindow::setFrame(const Rect& frame, bool display)
{
    m_frame = m_delegate.constrainFrameRect(frame);
    if (!isFinite(m_frame))
        return;
    const X11ViewContent::Place old = place();
    const PixelRect oldPixels = m_pixels;
    m_offset = m_windows.space().offsetFromScreenSpace(m_frame);
    m_whole = withinProtocol(m_windows.space().fromScreenSpace(m_frame));
    m_pixels = partToShow(m_whole);
    configure(); // even if unchanged: the window may have been moved past the toolkit
    const bool isMove = oldPixels.width == m_pixels.width && oldPixels.height == m_pixels.height && old == place();
    if (display || !isMove)
        setNeedsDisplay(); // a change of size is sent together with the new content
    else if (m_visible)
        m_windows.connection().flush();
}

PixelRect X11ToolkitWindow::partToShow(const PixelRect& whole) const
{
    constexpr int kOvershoot = 1024; // of windows as large as all monitors, with a wide glow
    const PixelRect desktop = m_windows.space().desktop;
    if (desktop.empty() || (whole.width <= desktop.width + kOvershoot && whole.height <= desktop.height + kOvershoot))
        return whole;
    const PixelRect part = intersection(whole, desktop);
    return part.empty() ? PixelRect{desktop.x - 1, desktop.y - 1, 1, 1} : part;
}

void X11ToolkitWindow::setFrameOrigin(Point origin)
{
    setFrame({origin.x, origin.y, m_frame.width, m_frame.height}, false);
}

void X11ToolkitWindow::configure()
{
    const std::uint32_t values[] = {static_cast<std::uint32_t>(m_pixels.x), static_cast<std::uint32_t>(m_pixels.y),
                                    static_cast<std::uint32_t>(m_pixels.width),
                                    static_cast<std::uint32_t>(m_pixels.height)};
    xcb_configure_window(m_windows.connection().raw(), m_surface->window(),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         values);
}

void X11ToolkitWindow::orderFront()
{
    m_windows.stack().orderFront(m_surface->window());
    if (m_visible)
        return;
    m_visible = true;
    setNeedsDisplay();
}

void X11ToolkitWindow::orderOut()
{
    if (!m_visible)
        return;
    m_visible = false;
    m_windows.stack().orderOut(m_surface->window());
    m_surface->forget();
    m_completeSince.reset();
}

void X11ToolkitWindow::setContentView(ContentView& view)
{
    m_view = &view;
    setNeedsDisplay();
}

void X11ToolkitWindow::setNeedsDisplay() { m_damage = PixelRegion(allPixels()); }

void X11ToolkitWindow::setNeedsDisplay(std::span<const Rect> parts)
{
    if (!m_view)
        return;
    const X11ViewContent view = content();
    for (const Rect& part : parts)
        m_damage.add(view.toPixels(part));
}

X11ViewContent::Place X11ToolkitWindow::place() const
{
    return {m_pixels.x - m_whole.x, m_pixels.y - m_whole.y, m_offset};
}

X11ViewContent X11ToolkitWindow::content() const
{
    return {*m_view, m_frame.size(), m_windows.space().pixelsPerPoint, allPixels(), place()};
}

bool X11ToolkitWindow::paint()
{
    if (!m_visible || !m_view || m_damage.empty())
        return false;
    const bool whole = m_damage.contains(allPixels());
    const PixelRegion damage = std::exchange(m_damage, {});
    m_damage = m_surface->paint(content(), damage);
    if (whole && m_damage.empty())
        m_completeSince = xcb_no_operation(m_windows.connection().raw()).sequence;
    return !damage.minus(m_damage).empty();
}

void X11ToolkitWindow::expose(const PixelRect& part, std::uint32_t request)
{
    // The exposure after mapping or growing covers what was drawn right after it.
    const bool drawnSince = m_completeSince && static_cast<std::int32_t>(request - *m_completeSince) < 0;
    if (!drawnSince)
        m_damage.add(intersection(part, allPixels()));
}

void X11ToolkitWindow::renewSurface()
{
    xcb_connection_t* raw = m_windows.connection().raw();
    const XcbReply<xcb_get_geometry_reply_t> old(
        xcb_get_geometry_reply(raw, xcb_get_geometry(raw, m_surface->window()), nullptr));
    auto fresh = m_windows.makeSurface();
    m_windows.stack().replace(m_surface->window(), fresh->window());
    m_surface = std::move(fresh);
    if (old) { // it may have been moved past the toolkit
        m_whole.x += old->x - m_pixels.x;
        m_whole.y += old->y - m_pixels.y;
        m_pixels.x = old->x;
        m_pixels.y = old->y;
    }
    m_completeSince.reset();
    configure();
    setNeedsDisplay();
}

} // namespace haloric
