#include "hosts/sim/overlay/SimToolkitWindow.h"

#include "hosts/sim/overlay/SimToolkitWindows.h"

#include <algorithm>

namespace haloric {

using Kind = SimJournal::Kind;

namespace {

SimWindow serverWindowFor(const ToolkitWindowConfiguration& configuration, const SimModel& model)
{
    SimWindow window;
    window.owner = SimModel::kOwnProcess;
    window.frame = model.flipped(configuration.contentRect);
    window.believedFrame = window.frame;
    window.layer = static_cast<int>(configuration.level);
    window.overlay = true;
    window.orderedIn = false;
    return window;
}

} // namespace

SimToolkitWindow::SimToolkitWindow(SimToolkitWindows& owner, const ToolkitWindowConfiguration& configuration,
                                   const ToolkitWindowDelegate& delegate)
    : m_owner(owner),
      m_configuration(configuration),
      m_delegate(delegate)
{
    SimModel& model = owner.desktop().model;
    m_server = &model.windows.add(serverWindowFor(configuration, model));
    m_number = m_server->number;
    m_owner.m_windows.push_back(this);
}

SimToolkitWindow::~SimToolkitWindow()
{
    std::erase(m_owner.m_windows, this);
    if (isVisible())
        m_owner.desktop().journal.noteOverlay(Kind::overlayHidden, windowNumber(), m_server->frame);
    m_owner.desktop().model.windows.remove(m_number);
}

Rect SimToolkitWindow::frame() const { return m_owner.desktop().model.flipped(m_server->believedFrame); }

void SimToolkitWindow::setFrame(const Rect& frame, bool display)
{
    const Size oldSize = m_server->believedFrame.size();
    apply(m_owner.desktop().model.flipped(m_delegate.constrainFrameRect(frame)));
    if (display || m_server->believedFrame.size() != oldSize)
        setNeedsDisplay();
}

void SimToolkitWindow::setFrameOrigin(Point origin)
{
    const Rect old = frame();
    apply(m_owner.desktop().model.flipped({origin.x, origin.y, old.width, old.height}));
}

void SimToolkitWindow::apply(const Rect& believedFrame)
{
    if (believedFrame == m_server->believedFrame)
        return;
    m_server->believedFrame = believedFrame;
    m_server->frame = believedFrame;
    m_owner.desktop().journal.noteOverlay(Kind::overlayMoved, windowNumber(), believedFrame);
}

bool SimToolkitWindow::isVisible() const { return m_server->orderedIn; }

void SimToolkitWindow::orderFront()
{
    constexpr std::uint64_t kMoveToActiveSpace = 2;
    SimModel& model = m_owner.desktop().model;
    if (!m_server->orderedIn || (m_configuration.collectionBehavior & kMoveToActiveSpace))
        m_server->space = model.activeSpace;
    m_server->orderedIn = true;
    model.windows.raise(m_number);
    m_owner.desktop().journal.noteOverlay(Kind::overlayShown, windowNumber(), m_server->frame);
    if (m_dirty)
        scheduleDrawing();
}

void SimToolkitWindow::orderOut()
{
    if (!m_server->orderedIn)
        return;
    m_server->orderedIn = false;
    m_owner.desktop().journal.noteOverlay(Kind::overlayHidden, windowNumber(), m_server->frame);
}

void SimToolkitWindow::setContentView(ContentView& view)
{
    m_view = &view;
    m_dirty = true;
}

void SimToolkitWindow::setNeedsDisplay()
{
    if (!m_dirty)
        m_owner.desktop().journal.noteOverlay(Kind::overlayDirty, windowNumber(), m_server->frame);
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
    m_owner.desktop().runLoop.post(m_anchor.bind([](SimToolkitWindow& self) {
        self.m_drawingScheduled = false;
        if (self.isVisible() && self.m_dirty)
            self.draw();
    }));
}

void SimToolkitWindow::draw()
{
    m_dirty = false;
    m_shown = currentDrawings();
    m_owner.desktop().journal.noteOverlay(Kind::overlayDrawn, windowNumber(), m_server->frame);
}

std::vector<RecordingCanvas::Drawing> SimToolkitWindow::currentDrawings() const
{
    RecordingCanvas canvas;
    drawInto(canvas);
    return canvas.drawings();
}

void SimToolkitWindow::drawInto(Canvas& canvas) const
{
    if (m_view)
        m_view->draw(canvas, bounds());
}

} // namespace haloric
