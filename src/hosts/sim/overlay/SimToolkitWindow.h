// One toolkit window of the simulated desktop: the toolkit's own state of an overlay, beside the window server's record
// of it in the model. Like a real toolkit, it sends no request for a frame that it believes to be set already.
#pragma once

#include "drawing/RecordingCanvas.h"
#include "foundation/WeakAnchor.h"
#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/ToolkitWindow.h"

#include <vector>

namespace haloric {

class SimToolkitWindows;

class SimToolkitWindow final : public ToolkitWindow {
public:
    SimToolkitWindow(SimToolkitWindows& owner, const ToolkitWindowConfiguration& configuration,
                     const ToolkitWindowDelegate& delegate);
    ~SimToolkitWindow() override;

    Rect frame() const override;
    void setFrame(const Rect& frame, bool display) override;
    void setFrameOrigin(Point origin) override;
    bool isVisible() const override;
    void orderFront() override;
    void orderOut() override;
    std::int64_t windowNumber() const override { return static_cast<std::int64_t>(m_number); }
    void setContentView(ContentView& view) override;
    void setNeedsDisplay() override;
    void setNeedsDisplay(std::span<const Rect> parts) override;

    const ToolkitWindowConfiguration& configuration() const { return m_configuration; }
    const ContentView* contentView() const { return m_view; }

    // What the last drawing pass put on the canvas, and what one would put there now.
    const std::vector<RecordingCanvas::Drawing>& shownDrawings() const { return m_shown; }
    std::vector<RecordingCanvas::Drawing> currentDrawings() const;

    // Draws the contents onto a canvas of the view's size.
    void drawInto(Canvas& canvas) const;

    // The window server's record.
    const SimWindow& serverWindow() const { return *m_server; }

    // The view's rectangle.
    Rect bounds() const { return {0, 0, m_server->believedFrame.width, m_server->believedFrame.height}; }

private:
    void apply(const Rect& believedFrame);
    void scheduleDrawing();
    void draw();

    SimToolkitWindows& m_owner;
    ToolkitWindowConfiguration m_configuration;
    const ToolkitWindowDelegate& m_delegate;
    SimWindow* m_server;
    WindowNumber m_number;
    ContentView* m_view = nullptr;
    bool m_dirty = true;
    bool m_drawingScheduled = false;
    std::vector<RecordingCanvas::Drawing> m_shown;
    WeakAnchor<SimToolkitWindow> m_anchor{*this};
};

} // namespace haloric
