#include "overlay/OverlayWindow.h"

#include "foundation/ScreenChoice.h"
#include "platform/WindowStyle.h"

#include <cmath>

namespace haloric {

namespace {

// Largest accepted distance between the requested and the reported position, in points.
constexpr double kPositionTolerance = 0.5;

ToolkitWindowConfiguration standardConfiguration()
{
    constexpr std::uint64_t kBuffered = 2;
    constexpr std::int64_t kNoAnimation = 2;
    constexpr std::int64_t kFloatingLevel = 3;
    constexpr std::uint64_t kMoveToActiveSpace = 2;
    constexpr std::uint64_t kTransient = 8;
    constexpr std::uint64_t kIgnoresCycle = 64;
    constexpr std::uint64_t kFullScreenAuxiliary = 256;

    ToolkitWindowConfiguration configuration;
    configuration.contentRect = Rect();
    configuration.styleMask = WindowStyle::kBorderless;
    configuration.backing = kBuffered;
    configuration.defersCreation = false;
    configuration.isOpaque = false;
    configuration.hasClearBackground = true;
    configuration.hasShadow = false;
    configuration.ignoresMouseEvents = true;
    configuration.isReleasedWhenClosed = false;
    configuration.hidesOnDeactivate = false;
    configuration.animationBehavior = kNoAnimation;
    configuration.isExcludedFromWindowsMenu = true;
    configuration.collectionBehavior = kMoveToActiveSpace | kTransient | kIgnoresCycle | kFullScreenAuxiliary;
    configuration.level = kFloatingLevel;
    configuration.isMovable = false;
    return configuration;
}

// The server's number of a toolkit window; the toolkit counts in a wider type.
WindowNumber serverNumber(const ToolkitWindow& window)
{
    return static_cast<WindowNumber>(static_cast<std::uint32_t>(window.windowNumber()));
}

} // namespace

OverlayWindow::OverlayWindow(const OverlayWindowDependencies& platform)
    : m_platform(platform),
      m_window(platform.toolkitWindows.make(standardConfiguration(), *this))
{
}

void OverlayWindow::setFrame(const Rect& frame)
{
    if (isFinite(frame) && m_window->frame() != frame)
        m_window->setFrame(frame, false);
}

void OverlayWindow::positionHighlight(const Rect& target, Positioning positioning)
{
    if (!isFinite(target))
        return;
    if (positioning == Positioning::fastPathAllowed) {
        const Rect current = frame();
        const bool sameSize = target.size() == current.size();
        // Two missing displays compare equal; missing and present do not.
        if (isVisible() && sameSize && displayID(current) == displayID(target)) {
            if (target.origin() == current.origin() || moveThroughServer(target))
                return;
        }
    }
    moveThroughToolkit(target);
}

bool OverlayWindow::moveThroughServer(const Rect& target)
{
    const auto screens = m_platform.screens.all();
    if (!m_transactionMovesAvailable || m_window->windowNumber() <= 0 || screens.empty())
        return false;
    const Rect global = flippedVertically(target, screens.front().frame.maxY());
    if (!m_platform.windowServer.get().move(serverNumber(*m_window), global.origin())) {
        m_transactionMovesAvailable = false;
        m_platform.log.line("WindowServer overlay transactions unavailable; using AppKit positioning");
        return false;
    }
    m_serverFrame = target;
    m_lastTransactionMove = m_platform.runLoop.systemUptime();
    verifyTransactionPosition();
    return true;
}

void OverlayWindow::moveThroughToolkit(const Rect& target)
{
    // The toolkit compares with the frame that it last set, so that frame is corrected first.
    if (m_serverFrame && m_window->frame() != *m_serverFrame)
        m_window->setFrame(*m_serverFrame, false);
    m_serverFrame.reset();

    const Rect current = m_window->frame();
    if (current.size() != target.size())
        m_window->setFrame(target, false);
    else if (current.origin() != target.origin())
        m_window->setFrameOrigin(target.origin());
}

void OverlayWindow::verifyTransactionPosition()
{
    if (m_transactionMovesVerified || m_transactionVerificationPending)
        return;
    m_transactionVerificationPending = true;
    m_platform.runLoop.postAfter(kVerificationDelay, m_anchor.bind(&OverlayWindow::checkTransactionPosition));
}

void OverlayWindow::checkTransactionPosition()
{
    m_transactionVerificationPending = false;
    const auto screens = m_platform.screens.all();
    if (!isVisible() || !m_serverFrame || screens.empty())
        return;
    if (m_platform.runLoop.systemUptime() - m_lastTransactionMove < kVerificationDelay) {
        verifyTransactionPosition(); // still moving: the server may lag behind
        return;
    }
    if (isWhereServerWasTold(screens.front().frame.maxY())) {
        m_transactionMovesVerified = true;
        m_platform.log.line("WindowServer fast path: direct overlay position verified");
        return;
    }
    m_transactionMovesAvailable = false;
    const Rect target = *m_serverFrame;
    positionHighlight(target, Positioning::synchronizeWithAppKit);
    m_platform.log.line("WindowServer overlay position did not match; using AppKit positioning");
}

bool OverlayWindow::isWhereServerWasTold(double primaryMaxY) const
{
    const Rect expected = flippedVertically(*m_serverFrame, primaryMaxY);
    const auto bounds = m_platform.windowServer.get().bounds(serverNumber(*m_window));
    return bounds && std::abs(bounds->minX() - expected.minX()) < kPositionTolerance &&
           std::abs(bounds->minY() - expected.minY()) < kPositionTolerance;
}

std::optional<DisplayID> OverlayWindow::displayID(const Rect& rect) const
{
    const Screen* screen = screenHoldingMost(rect, m_platform.screens.all());
    return screen ? screen->displayID : std::nullopt;
}

} // namespace haloric
