// An overlay of the program on the simulated desktop: the window server's record of its window, the frame in which the
// toolkit believes it to be, and what was drawn into it. A toolkit owns and changes it; checkers read it. Frames are in
// global space. Main thread.
#pragma once

#include "drawing/RecordingCanvas.h"
#include "hosts/sim/desktop/SimWindow.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace haloric {

struct SimDesktop;

// On which Space a window appears that is brought to the front.
enum class SimSpaceOfWindow {
    wherePlaced, // the active one, if the window is not on screen
    active,
};

class SimOverlay {
public:
    // Draws the contents as they are at this moment, onto a canvas of the window's size.
    using Draw = std::function<void(Canvas&)>;

    // Ordered out. `desktop` outlives the overlay and lists it.
    SimOverlay(SimDesktop& desktop, const Rect& frame, int layer, Draw draw);
    ~SimOverlay();
    SimOverlay(const SimOverlay&) = delete;
    SimOverlay& operator=(const SimOverlay&) = delete;

    // The toolkit's requests. A frame that it believes in force changes nothing.
    void setFrame(const Rect& frame);
    void setLayer(int layer);
    void orderFront(SimSpaceOfWindow space);
    void orderOut();
    void noteOutdated();
    void draw();

    std::int64_t windowNumber() const { return static_cast<std::int64_t>(m_server->number); }
    bool isVisible() const { return m_server->orderedIn; }
    const Rect& believedFrame() const { return m_server->believedFrame; }

    // The window server's record.
    const SimWindow& serverWindow() const { return *m_server; }

    // The view's rectangle.
    Rect bounds() const { return {0, 0, believedFrame().width, believedFrame().height}; }

    // What the last drawing pass put on the canvas, and what one would put there now.
    const std::vector<RecordingCanvas::Drawing>& shownDrawings() const { return m_shown; }
    std::vector<RecordingCanvas::Drawing> currentDrawings() const;

    void drawInto(Canvas& canvas) const { m_draw(canvas); }

private:
    SimDesktop& m_desktop;
    SimWindow* m_server;
    Draw m_draw;
    std::vector<RecordingCanvas::Drawing> m_shown;
};

} // namespace haloric
