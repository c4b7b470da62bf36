#include "overlay/OverlayController.h"

#include "overlay/AppDimItems.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace haloric {

namespace {

// Space around the focused window for drawing outside it, in points. The border is inside.
double highlightMargin(const Settings& settings)
{
    constexpr double kLeast = 2;
    constexpr double kForPulse = 32;
    double margin = kLeast;
    if (settings.glowEnabled)
        margin = std::max(kLeast, 2 * HighlightView::glowReach(settings) + 4);
    if (settings.pulseEnabled)
        margin = std::max(margin, kForPulse);
    return margin;
}

std::optional<double> tintHeight(const FocusState::TitleBar& titleBar, const Settings& settings)
{
    switch (titleBar.kind()) {
    case FocusState::TitleBar::Kind::height:
        return titleBar.points();
    case FocusState::TitleBar::Kind::none:
        return std::nullopt;
    case FocusState::TitleBar::Kind::unknown:
        break;
    }
    return settings.tintHeight;
}

} // namespace

OverlayController::OverlayController(const OverlayDependencies& platform, SettingsStore& store)
    : m_platform(platform),
      m_store(store),
      m_highlightWindow(makeWindow()),
      m_screenshotMonitor(platform.runLoop, platform.input)
{
    m_highlightWindow->setContentView(m_highlightView);
    m_highlightView.settings = m_store.settings();
    rebuildDimWindows();
    observeOutside();
}

void OverlayController::observeOutside()
{
    m_cancellables.push_back(
        m_platform.screens.onParametersChange(m_anchor.bind(&OverlayController::screenParametersChanged)));
    m_cancellables.push_back(m_platform.workspace.observe(WorkspaceNotification::activeSpaceDidChange,
                                                          m_anchor.bind(&OverlayController::activeSpaceChanged)));
    m_screenshotMonitor.onChange = m_anchor.bind(&OverlayController::screenshotUIChanged);
    m_screenshotMonitor.start();

    m_cancellables.push_back(m_store.subscribe([this](const Settings& settings) {
        m_platform.runLoop.post(m_anchor.bind(&OverlayController::settingsChanged, settings));
    }));
}

std::unique_ptr<OverlayWindow> OverlayController::makeWindow() const
{
    return std::make_unique<OverlayWindow>(OverlayWindowDependencies{
        m_platform.runLoop, m_platform.screens, m_platform.toolkitWindows, m_platform.windowServer, m_platform.log});
}

void OverlayController::setState(const FocusState& state)
{
    if (state.windowID != m_state.windowID || state.pid != m_state.pid)
        m_highlightNeedsOrdering = true;
    m_state = state;
    layout();
}

void OverlayController::screenParametersChanged()
{
    m_highlightNeedsOrdering = true;
    rebuildDimWindows();
    layout();
}

void OverlayController::activeSpaceChanged()
{
    m_highlightWindow->orderOut();
    orderOut(m_dimWindows);
    orderOut(m_appDimWindows);
    m_highlightNeedsOrdering = true;
    layout();
}

void OverlayController::settingsChanged(const Settings& settings)
{
    m_highlightView.settings = settings;
    m_highlightWindow->setNeedsDisplay();
    for (std::size_t i = 0; i < m_dimViews.size(); ++i) {
        m_dimViews[i]->settings = settings;
        m_dimWindows[i]->setNeedsDisplay();
        m_appDimViews[i]->settings = settings;
        m_appDimWindows[i]->setNeedsDisplay();
    }
    layout();
}

void OverlayController::screenshotUIChanged(bool visible)
{
    if (visible == m_screenshotUIVisible)
        return;
    m_screenshotUIVisible = visible;
    layout();
}

void OverlayController::rebuildDimWindows()
{
    orderOut(m_dimWindows);
    m_dimWindows.clear();
    m_dimViews.clear();
    orderOut(m_appDimWindows);
    m_appDimWindows.clear();
    m_appDimViews.clear();

    const auto append = [this](auto& views, auto& windows) {
        using View = std::remove_cvref_t<decltype(*views.front())>;
        views.push_back(std::make_unique<View>());
        views.back()->settings = m_store.settings();
        windows.push_back(makeWindow());
        windows.back()->setContentView(*views.back());
    };
    for (std::size_t i = 0; i < m_platform.screens.all().size(); ++i) {
        append(m_dimViews, m_dimWindows);
        append(m_appDimViews, m_appDimWindows);
    }
}

void OverlayController::layout()
{
    const Settings& settings = m_store.settings();
    const bool hasSomethingToDraw =
        settings.borderEnabled || settings.glowEnabled || settings.tintEnabled || settings.pulseEnabled;
    if (!m_state.frame || m_screenshotUIVisible) {
        m_highlightWindow->orderOut();
        orderOut(m_dimWindows);
        hideAppDim();
        return;
    }
    const Rect focusedFrame = *m_state.frame;
    const bool fullScreen = std::ranges::count(m_platform.screens.all(), focusedFrame, &Screen::frame) > 0;

    layoutDimming(focusedFrame);
    if (hasSomethingToDraw && !(settings.hideWhenFullScreen && fullScreen))
        layoutHighlight(focusedFrame);
    else
        m_highlightWindow->orderOut();
}

void OverlayController::layoutDimming(const Rect& focusedFrame)
{
    const Settings& settings = m_store.settings();
    if (!settings.dimEnabled) {
        orderOut(m_dimWindows);
        hideAppDim();
    } else if (settings.dimScope == DimScope::selectedApps) {
        orderOut(m_dimWindows);
        layoutAppDim(focusedFrame);
    } else {
        hideAppDim();
        layoutDim(focusedFrame);
    }
}

void OverlayController::layoutDim(const Rect& focusedFrame)
{
    const auto screens = m_platform.screens.all();
    for (std::size_t i = 0; i < std::min(m_dimWindows.size(), screens.size()); ++i) {
        const Rect& screen = screens[i].frame;
        OverlayWindow& window = *m_dimWindows[i];
        window.setFrame(screen);
        const Rect hole = focusedFrame.translatedBy(-screen.minX(), -screen.minY());
        const std::optional<Rect> oldHole = std::exchange(m_dimViews[i]->holeRect, hole);
        if (!oldHole)
            window.setNeedsDisplay();
        else if (*oldHole != hole)
            window.setNeedsDisplay(DimView::holeDamage(*oldHole, hole));
        showBelowHighlight(window);
    }
}

void OverlayController::layoutAppDim(const Rect& focusedFrame)
{
    const Seconds now = m_platform.runLoop.wallClock();
    if (!m_appDimSnapshot || now - m_appDimSnapshot->at >= kAppDimSnapshotLifetime)
        m_appDimSnapshot = AppDimSnapshot{m_platform.windowList.onScreen(), m_platform.runLoop.wallClock()};
    makeAppDimItems(m_appDimSnapshot->entries, m_state, focusedFrame, m_store.settings().dimApps, m_appDimItems);

    const auto screens = m_platform.screens.all();
    for (std::size_t i = 0; i < std::min(m_appDimWindows.size(), screens.size()); ++i) {
        const Rect& screen = screens[i].frame;
        OverlayWindow& window = *m_appDimWindows[i];
        window.setFrame(screen);
        m_localAppDimItems = m_appDimItems;
        for (AppDimView::Window& item : m_localAppDimItems)
            item.rect = item.rect.translatedBy(-screen.minX(), -screen.minY());
        if (m_appDimViews[i]->windows != m_localAppDimItems) {
            m_appDimViews[i]->windows = m_localAppDimItems;
            window.setNeedsDisplay();
        }
        showBelowHighlight(window);
    }
    if (!m_appDimTimer) {
        m_appDimTimer = m_platform.runLoop.scheduleRepeating(kAppDimInterval, kAppDimTolerance,
                                                             m_anchor.bind(&OverlayController::appDimTick));
    }
}

void OverlayController::appDimTick()
{
    auto entries = m_platform.windowList.onScreen();
    if (m_appDimSnapshot && m_appDimSnapshot->entries == entries)
        return;
    m_appDimSnapshot = AppDimSnapshot{std::move(entries), m_platform.runLoop.wallClock()};
    layout();
}

void OverlayController::hideAppDim()
{
    orderOut(m_appDimWindows);
    m_appDimTimer.reset();
    m_appDimSnapshot.reset();
}

void OverlayController::layoutHighlight(const Rect& focusedFrame)
{
    const Settings& settings = m_store.settings();
    const double margin = highlightMargin(settings);
    const bool ordersFront = !m_highlightWindow->isVisible() || m_highlightNeedsOrdering;
    m_highlightWindow->positionHighlight(focusedFrame.insetBy(-margin),
                                         ordersFront ? OverlayWindow::Positioning::synchronizeWithAppKit
                                                     : OverlayWindow::Positioning::fastPathAllowed);

    const std::optional<double> height = tintHeight(m_state.titleBar, settings);
    const Rect windowRect{margin, margin, focusedFrame.width, focusedFrame.height};
    if (m_highlightView.tintHeight != height || m_highlightView.windowRect != windowRect) {
        m_highlightView.tintHeight = height;
        m_highlightView.windowRect = windowRect;
        m_highlightWindow->setNeedsDisplay();
    }
    if (ordersFront) {
        m_highlightWindow->orderFront();
        m_highlightNeedsOrdering = false;
    }
}

// All overlays share one level, so a window ordered to the front covers the highlight until it is ordered again.
void OverlayController::showBelowHighlight(OverlayWindow& window)
{
    if (window.isVisible())
        return;
    window.orderFront();
    m_highlightNeedsOrdering = true;
}

void OverlayController::orderOut(const OverlayWindows& windows)
{
    for (const auto& window : windows)
        window->orderOut();
}

void OverlayController::pulse()
{
    if (!m_store.settings().pulseEnabled || !m_state.frame)
        return;
    m_pulseStart = m_platform.runLoop.wallClock();
    m_pulseTimer =
        m_platform.runLoop.scheduleRepeating(kPulseInterval, Seconds(0), m_anchor.bind(&OverlayController::pulseTick));
}

void OverlayController::pulseTick()
{
    if (!m_pulseStart) {
        m_pulseTimer.reset();
        return;
    }
    const double progress = (m_platform.runLoop.wallClock() - *m_pulseStart) / kPulseDuration;
    // Progress is negative when the clock was set back; that ends the pulse as well.
    if (progress >= 0 && progress < 1) {
        setPulseProgress(progress);
        return;
    }
    setPulseProgress(0);
    m_pulseStart.reset();
    m_pulseTimer.reset();
}

void OverlayController::setPulseProgress(double progress)
{
    const std::vector<Rect> damage = m_highlightView.pulseDamage(m_highlightView.pulseProgress, progress);
    m_highlightView.pulseProgress = progress;
    m_highlightWindow->setNeedsDisplay(damage);
}

} // namespace haloric
