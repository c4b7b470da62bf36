#include "hosts/macos/overlay/MacToolkitWindows.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/overlay/MacContentView.h"
#include "hosts/macos/overlay/MacOverlayWindow.h"

namespace haloric {
namespace {

class MacToolkitWindow final : public ToolkitWindow {
public:
    MacToolkitWindow(const ToolkitWindowConfiguration& configuration, const ToolkitWindowDelegate& delegate)
        : m_window([[MacOverlayWindow alloc] initWithConfiguration:configuration delegate:&delegate])
    {
    }

    ~MacToolkitWindow() override
    {
        [m_view forgetContent];
        [m_window forgetOverlayDelegate];
        [m_window orderOut:nil];
    }

    MacToolkitWindow(const MacToolkitWindow&) = delete;
    MacToolkitWindow& operator=(const MacToolkitWindow&) = delete;

    Rect frame() const override { return rectFrom(m_window.frame); }
    void setFrame(const Rect& frame, bool display) override { [m_window setFrame:cgRectFrom(frame) display:display]; }
    void setFrameOrigin(Point origin) override { [m_window setFrameOrigin:cgPointFrom(origin)]; }

    bool isVisible() const override { return m_window.visible; }

    // "Regardless", because the application is hardly ever the active one.
    void orderFront() override { [m_window orderFrontRegardless]; }
    void orderOut() override { [m_window orderOut:nil]; }

    std::int64_t windowNumber() const override { return m_window.windowNumber; }

    void setContentView(ContentView& view) override
    {
        [m_view forgetContent];
        m_view = [[MacContentView alloc] initWithContent:&view];
        m_window.contentView = m_view;
    }

    void setNeedsDisplay() override { m_view.needsDisplay = YES; }

    void setNeedsDisplay(std::span<const Rect> parts) override
    {
        for (const Rect& part : parts)
            [m_view setNeedsDisplayInRect:cgRectFrom(part)];
    }

private:
    MacOverlayWindow* const m_window;
    MacContentView* m_view = nil;
};

} // namespace

std::unique_ptr<ToolkitWindow> MacToolkitWindows::make(const ToolkitWindowConfiguration& configuration,
                                                       const ToolkitWindowDelegate& delegate)
{
    return std::make_unique<MacToolkitWindow>(configuration, delegate);
}

} // namespace haloric
