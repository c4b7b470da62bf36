// A borderless, transparent, click-through window that floats above ordinary windows and never takes focus. It can
// follow a dragged window past the toolkit, by moves in the window server, which it checks once and gives up for
// good when they fail. Main thread. The owner keeps the content view alive longer than the window.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "foundation/Time.h"
#include "foundation/WeakAnchor.h"
#include "overlay/OverlayWindowDependencies.h"
#include "platform/ToolkitWindow.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace haloric {

class OverlayWindow final : private ToolkitWindowDelegate {
public:
    enum class Positioning {
        fastPathAllowed,
        synchronizeWithAppKit, // AppKit, or the toolkit in its place, moves the window, whatever else would be possible
    };

    static constexpr Seconds kVerificationDelay{0.05};

    explicit OverlayWindow(const OverlayWindowDependencies& platform);

    // Puts the window at `target` (screen space); makes no call when it is there already, or when a coordinate is not
    // finite.
    void positionHighlight(const Rect& target, Positioning positioning);

    // The operations of ToolkitWindow. `setFrame` does not redisplay, and does nothing when the toolkit already has
    // that frame, or when a coordinate is not finite.
    void setFrame(const Rect& frame);
    void setContentView(ContentView& view) { m_window->setContentView(view); }
    void setNeedsDisplay() { m_window->setNeedsDisplay(); }
    void setNeedsDisplay(std::span<const Rect> parts) { m_window->setNeedsDisplay(parts); }
    void orderFront() { m_window->orderFront(); }
    void orderOut() { m_window->orderOut(); }
    bool isVisible() const { return m_window->isVisible(); }

    // The window's place on screen: the last one set through the server, else the toolkit's frame.
    Rect frame() const { return m_serverFrame.value_or(m_window->frame()); }

    std::int64_t windowNumber() const { return m_window->windowNumber(); }

    // The fast path's state, for watching it.
    const std::optional<Rect>& serverFrame() const { return m_serverFrame; }
    bool transactionMovesAvailable() const { return m_transactionMovesAvailable; }
    bool transactionMovesVerified() const { return m_transactionMovesVerified; }
    bool transactionVerificationPending() const { return m_transactionVerificationPending; }
    Seconds lastTransactionMove() const { return m_lastTransactionMove; }

private:
    bool canBecomeKey() const override { return false; }
    bool canBecomeMain() const override { return false; }
    Rect constrainFrameRect(const Rect& proposed) const override { return proposed; }

    bool moveThroughServer(const Rect& target); // false: the toolkit must do it
    void moveThroughToolkit(const Rect& target);
    void verifyTransactionPosition();
    void checkTransactionPosition();
    bool isWhereServerWasTold(double primaryMaxY) const;
    std::optional<DisplayID> displayID(const Rect& rect) const;

    OverlayWindowDependencies m_platform;
    std::unique_ptr<ToolkitWindow> m_window;
    std::optional<Rect> m_serverFrame; // while present, the toolkit's frame may be stale
    bool m_transactionMovesAvailable = true;
    bool m_transactionMovesVerified = false;
    bool m_transactionVerificationPending = false;
    Seconds m_lastTransactionMove{0}; // system uptime
    WeakAnchor<OverlayWindow> m_anchor{*this};
};

} // namespace haloric
