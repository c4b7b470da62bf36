#include "hosts/sim/desktop/SimOverlay.h"

#include "hosts/sim/desktop/SimDesktop.h"

#include <utility>

namespace haloric {

using Kind = SimJournal::Kind;

namespace {

SimWindow serverWindowFor(const Rect& frame, int layer)
{
    SimWindow window;
    window.owner = SimModel::kOwnProcess;
    window.frame = frame;
    window.believedFrame = frame;
    window.layer = layer;
    window.overlay = true;
    window.orderedIn = false;
    return window;
}

} // namespace

SimOverlay::SimOverlay(SimDesktop& desktop, const Rect& frame, int layer, Draw draw)
    : m_desktop(desktop),
      m_server(&desktop.model.windows.add(serverWindowFor(frame, layer))),
      m_draw(std::move(draw))
{
    m_desktop.overlays.push_back(this);
}

SimOverlay::~SimOverlay()
{
    std::erase(m_desktop.overlays, this);
    orderOut();
    m_desktop.model.windows.remove(m_server->number);
}

void SimOverlay::setFrame(const Rect& frame)
{
    if (frame == m_server->believedFrame)
        return;
    m_server->believedFrame = frame;
    m_server->frame = frame;
    m_desktop.journal.noteOverlay(Kind::overlayMoved, windowNumber(), frame);
}

void SimOverlay::setLayer(int layer) { m_desktop.model.windows.setLayer(m_server->number, layer); }

void SimOverlay::orderFront(SimSpaceOfWindow space)
{
    SimModel& model = m_desktop.model;
    if (!m_server->orderedIn || space == SimSpaceOfWindow::active)
        m_server->space = model.activeSpace;
    m_server->orderedIn = true;
    model.windows.raise(m_server->number);
    m_desktop.journal.noteOverlay(Kind::overlayShown, windowNumber(), m_server->frame);
}

void SimOverlay::orderOut()
{
    if (!std::exchange(m_server->orderedIn, false))
        return;
    m_desktop.journal.noteOverlay(Kind::overlayHidden, windowNumber(), m_server->frame);
}

void SimOverlay::noteOutdated() { m_desktop.journal.noteOverlay(Kind::overlayDirty, windowNumber(), m_server->frame); }

void SimOverlay::draw()
{
    m_shown = currentDrawings();
    m_desktop.journal.noteOverlay(Kind::overlayDrawn, windowNumber(), m_server->frame);
}

std::vector<RecordingCanvas::Drawing> SimOverlay::currentDrawings() const
{
    RecordingCanvas canvas;
    drawInto(canvas);
    return canvas.drawings();
}

} // namespace haloric
