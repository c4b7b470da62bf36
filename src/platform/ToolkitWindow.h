// Haloric's own windows of the windowing toolkit: borderless, transparent and click-through. Main thread.
#pragma once

#include "foundation/Geometry.h"
#include "platform/ContentView.h"

#include <cstdint>
#include <memory>
#include <span>

namespace haloric {

// Properties that a window is made with, with the names and numbers of macOS.
struct ToolkitWindowConfiguration {
    Rect contentRect;
    std::uint64_t styleMask = 0; // WindowStyle
    std::uint64_t backing = 0;
    bool defersCreation = true;
    bool isOpaque = true;
    bool hasClearBackground = false;
    bool hasShadow = true;
    bool ignoresMouseEvents = false;
    bool isReleasedWhenClosed = true;
    bool hidesOnDeactivate = true;
    std::int64_t animationBehavior = 0;
    bool isExcludedFromWindowsMenu = false;
    std::uint64_t collectionBehavior = 0;
    std::int64_t level = 0;
    bool isMovable = true;
    friend bool operator==(const ToolkitWindowConfiguration&, const ToolkitWindowConfiguration&) = default;
};

// Decisions that the toolkit leaves to a window. The delegate outlives the window.
class ToolkitWindowDelegate {
public:
    virtual ~ToolkitWindowDelegate() = default;
    virtual bool canBecomeKey() const = 0;
    virtual bool canBecomeMain() const = 0;
    virtual Rect constrainFrameRect(const Rect& proposed) const = 0;
};

class ToolkitWindow {
public:
    virtual ~ToolkitWindow() = default;

    // Screen space, as last set by the toolkit; a move past the toolkit does not change it.
    virtual Rect frame() const = 0;
    virtual void setFrame(const Rect& frame, bool display) = 0;
    virtual void setFrameOrigin(Point origin) = 0;

    virtual bool isVisible() const = 0;
    virtual void orderFront() = 0; // above every window of the same level
    virtual void orderOut() = 0;

    // The window server's number; zero or less if there is none.
    virtual std::int64_t windowNumber() const = 0;

    // The view outlives the window.
    virtual void setContentView(ContentView& view) = 0;

    // Draws the content again, all of it or the given rectangles (view space), on a later turn of the main loop.
    // Requests add up.
    virtual void setNeedsDisplay() = 0;
    virtual void setNeedsDisplay(std::span<const Rect> parts) = 0;
};

class ToolkitWindows {
public:
    virtual ~ToolkitWindows() = default;

    // Never null. The window starts ordered out.
    virtual std::unique_ptr<ToolkitWindow> make(const ToolkitWindowConfiguration& configuration,
                                                const ToolkitWindowDelegate& delegate) = 0;
};

} // namespace haloric
