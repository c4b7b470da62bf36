// The fixture of the contract tests of overlay windows.
#pragma once

#include "contract/HostContract.h"
#include "drawing/Canvas.h"
#include "platform/Screens.h"

#include <memory>
#include <vector>

namespace haloric {

// As the program makes its overlays.
inline ToolkitWindowConfiguration overlayConfiguration()
{
    ToolkitWindowConfiguration configuration;
    configuration.backing = 2; // buffered
    configuration.defersCreation = false;
    configuration.isOpaque = false;
    configuration.hasClearBackground = true;
    configuration.hasShadow = false;
    configuration.ignoresMouseEvents = true;
    configuration.isReleasedWhenClosed = false;
    configuration.hidesOnDeactivate = false;
    configuration.animationBehavior = 2; // none
    configuration.isExcludedFromWindowsMenu = true;
    configuration.collectionBehavior = 330; // active Space, transient, out of the cycle, beside full screen
    configuration.level = 3;                // floating
    configuration.isMovable = false;
    return configuration;
}

class ContractOverlayDelegate final : public ToolkitWindowDelegate {
public:
    bool canBecomeKey() const override { return false; }
    bool canBecomeMain() const override { return false; }
    Rect constrainFrameRect(const Rect& proposed) const override { return proposed; }
};

class CountingView final : public ContentView {
public:
    int drawn = 0;
    Rect lastBounds;

    bool isOpaque() const override { return false; }
    bool isFlipped() const override { return false; }
    void draw(Canvas& canvas, const Rect& bounds) override
    {
        canvas.fillRect({0, 0, 10, 10}, {1, 0, 0, 1}, CompositingOperation::sourceOver);
        lastBounds = bounds;
        ++drawn;
    }
    std::vector<Rect> paintedArea(const Rect&) const override { return {{0, 0, 10, 10}}; }
};

class OverlayContract : public HostContract {
protected:
    static constexpr Rect kOverlay{200, 150, 320, 240}; // screen space

    std::unique_ptr<ToolkitWindow> makeOverlay()
    {
        auto window = host->toolkitWindows().make(overlayConfiguration(), delegate);
        window->setContentView(view);
        return window;
    }

    std::unique_ptr<ToolkitWindow> shownOverlay()
    {
        auto window = makeOverlay();
        window->setFrame(kOverlay, false);
        window->orderFront();
        EXPECT_TRUE(host->waitUntil([&] { return view.drawn > 0; }));
        return window;
    }

    Rect inGlobalSpace(const Rect& rect) { return flippedVertically(rect, host->screens().all()[0].frame.maxY()); }

    static WindowNumber numberOf(const ToolkitWindow& window)
    {
        return static_cast<WindowNumber>(static_cast<std::uint32_t>(window.windowNumber()));
    }

    ContractOverlayDelegate delegate; // before the windows, to outlive them
    CountingView view;
};

} // namespace haloric
