#include "hosts/sim/overlay/SimToolkitWindow.h"

namespace haloric {

namespace {

SimSpaceOfWindow spaceFor(const ToolkitWindowConfiguration& configuration)
{
    constexpr std::uint64_t kMoveToActiveSpace = 2;
    return configuration.collectionBehavior & kMoveToActiveSpace ? SimSpaceOfWindow::active
                                                                 : SimSpaceOfWindow::wherePlaced;
}

} // namespace

SimToolkitWindow::SimToolkitWindow(SimDesktop& desktop, const ToolkitWindowConfiguration& configuration,
                                   const ToolkitWindowDelegate& delegate)
    : m_desktop(desktop),
      m_space(spaceFor(configuration)),
      m_delegate(delegate),
      m_overlay(desktop, desktop.model.flipped(configuration.contentRect), static_cast<int>(configuration.level),
                [this](Canvas& canvas) {
                    if (m_view)
                        m_view->draw(canvas, m_overlay.bounds());
                })
{
}

Rect SimToolkitWindow::frame() const { return m_desktop.model.flipped(m_overlay.believedFrame()); }

void SimToolkitWindow::setFrame(const Rect& frame, bool display)
{
    const Size oldSize = m_overlay.believedFrame().size();
    m_overlay.setFrame(m_desktop.model.flipped(m_delegate.constrainFrameRect(frame)));
    if (display || m_overlay.believedFrame().size() != oldSize)
        setNeedsDisplay();
}

void SimToolkitWindow::setFrameOrigin(Point origin)
{
    const Rect old = frame();
    m_overlay.setFrame(m_desktop.model.flipped({origin.x, origin.y, old.width, old.height}));
}

void SimToolkitWindow::orderFront()
{
    m_overlay.orderFront(m_space);
    if (m_dirty)
        scheduleDrawing();
}

void SimToolkitWindow::setContentView(ContentView& view)
{
    m_view = &view;
    m_dirty = true;
}

void SimToolkitWindow::setNeedsDisplay()
{
    if (!m_dirty)
        m_overlay.noteOutdated();
    m_dirty = true;
    if (isVisible())
        scheduleDrawing();
}

void SimToolkitWindow::setNeedsDisplay(std::span<const Rect> /*parts*/) { setNeedsDisplay(); }

void SimToolkitWindow::scheduleDrawing()
{
    if (m_drawingScheduled)
        return;
    m_drawingScheduled = true;
    m_desktop.runLoop.post(m_anchor.bind([](SimToolkitWindow& self) {
        self.m_drawingScheduled = false;
        if (!self.isVisible() || !self.m_dirty)
            return;
        self.m_dirty = false;
        self.m_overlay.draw();
    }));
}

} // namespace haloric
