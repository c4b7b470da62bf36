// The adapters with a way to make windows for them to draw, and a view to draw.
#pragma once

#include "drawing/Canvas.h"
#include "x11/adapters/DesktopAdapters.h"

#include <optional>
#include <vector>

namespace haloric {

// Shows rectangles of one colour each, and a ring; counts how often it is asked.
class PatchView final : public ContentView {
public:
    struct Patch {
        Rect rect;
        Color color;
    };

    std::vector<Patch> patches;
    std::optional<Color> ringColor; // along the view's edge
    int draws = 0;

    bool isOpaque() const override { return false; }
    bool isFlipped() const override { return false; }

    void draw(Canvas& canvas, const Rect& bounds) override
    {
        ++draws;
        for (const Patch& patch : patches)
            canvas.fillRect(patch.rect, patch.color, CompositingOperation::sourceOver);
        if (ringColor)
            canvas.stroke(Path::rect(bounds.insetBy(kRingWidth / 2)), *ringColor, kRingWidth);
    }

    std::vector<Rect> paintedArea(const Rect& bounds) const override
    {
        std::vector<Rect> area;
        for (const Patch& patch : patches)
            area.push_back(patch.rect);
        if (ringColor)
            area.push_back(bounds);
        return area;
    }

    static constexpr double kRingWidth = 4;
};

inline constexpr Color kRed{1, 0, 0, 1};
inline constexpr Color kGreen{0, 1, 0, 1};
inline constexpr Pixel kRedPixel = 0xFF0000;
inline constexpr Pixel kGreenPixel = 0x00FF00;

class ScreenAdapters : public DesktopAdapters, private ToolkitWindowDelegate {
public:
    explicit ScreenAdapters(X11Session& testSession) : DesktopAdapters(testSession.display()), session(testSession) {}

    // A window with that view, not yet shown.
    std::unique_ptr<ToolkitWindow> make(ContentView& view, const Rect& frame)
    {
        auto window = toolkitWindows.make({}, *this);
        window->setContentView(view);
        window->setFrame(frame, false);
        return window;
    }

    Pixel pixelAt(int x, int y) { return session.observer().capture({x, y, 1, 1}).at(x, y); }

    // Turns the loop until the screen shows the colour there.
    [[nodiscard]] bool waitForPixel(int x, int y, Pixel color)
    {
        return waitUntil([&] { return colorDistance(pixelAt(x, y), color) <= 2; });
    }

    ScreenRect rectOf(const ToolkitWindow& window)
    {
        return session.observer().rectOnRoot(static_cast<xcb_window_t>(window.windowNumber()));
    }

    X11Session& session;

private:
    bool canBecomeKey() const override { return false; }
    bool canBecomeMain() const override { return false; }
    Rect constrainFrameRect(const Rect& proposed) const override { return proposed; }
};

} // namespace haloric
