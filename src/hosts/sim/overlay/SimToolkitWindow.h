// One toolkit window of the simulated desktop. Like a real toolkit, it sends no request for a frame that it believes to
// be set already, and draws outdated contents on a later turn of the main loop.
#pragma once

#include "foundation/WeakAnchor.h"
#include "hosts/sim/desktop/SimDesktop.h"
#include "hosts/sim/desktop/SimOverlay.h"
#include "platform/ToolkitWindow.h"

namespace haloric {

class SimToolkitWindow final : public ToolkitWindow {
public:
    SimToolkitWindow(SimDesktop& desktop, const ToolkitWindowConfiguration& configuration,
                     const ToolkitWindowDelegate& delegate);

    Rect frame() const override;
    void setFrame(const Rect& frame, bool display) override;
    void setFrameOrigin(Point origin) override;
    bool isVisible() const override { return m_overlay.isVisible(); }
    void orderFront() override;
    void orderOut() override { m_overlay.orderOut(); }
    std::int64_t windowNumber() const override { return m_overlay.windowNumber(); }
    void setContentView(ContentView& view) override;
    void setNeedsDisplay() override;
    void setNeedsDisplay(std::span<const Rect> parts) override;

private:
    void scheduleDrawing();

    SimDesktop& m_desktop;
    SimSpaceOfWindow m_space;
    const ToolkitWindowDelegate& m_delegate;
    ContentView* m_view = nullptr;
    SimOverlay m_overlay;
    bool m_dirty = true;
    bool m_drawingScheduled = false;
    WeakAnchor<SimToolkitWindow> m_anchor{*this};
};

} // namespace haloric
