#include "overlay/OverlayController.h"

#include <type_traits>

namespace haloric {

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
    // Wraps a member function so that it does nothing once the controller is gone.
    const auto weakly = [weak = m_weakAnchor.ref()](auto method) {
        return [weak, method](auto... arguments) {
            if (OverlayController* self = weak.get())
                (self->*method)(arguments...);
        };
    };
    m_cancellables.push_back(
        m_platform.screens.onParametersChange(weakly(&OverlayController::screenParametersChanged)));
    m_cancellables.push_back(m_platform.workspace.observe(WorkspaceNotification::activeSpaceDidChange,
                                                          weakly(&OverlayController::activeSpaceChanged)));
    m_screenshotMonitor.onChange = weakly(&OverlayController::screenshotUIChanged);
    m_screenshotMonitor.start();

    RunLoop& runLoop = m_platform.runLoop;
    const auto receive = [weak = m_weakAnchor.ref()](const Settings& settings) {
        if (OverlayController* self = weak.get())
            self->settingsChanged(settings);
    };
    m_cancellables.push_back(m_store.subscribe(
        [&runLoop, receive](const Settings& settings) { runLoop.post([receive, settings] { receive(settings); }); }));
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

void OverlayController::pulse()
{
    if (!m_store.settings().pulseEnabled || !m_state.frame)
        return;
    m_pulseStart = m_platform.runLoop.wallClock();
    m_pulseTimer = m_platform.runLoop.scheduleRepeating(kPulseInterval, Seconds(0), [weak = m_weakAnchor.ref()] {
        if (OverlayController* self = weak.get())
            self->pulseTick();
    });
}

void OverlayController::pulseTick()
{
    if (!m_pulseStart) {
        m_pulseTimer.reset();
        return;
    }
    const double progress = (m_platform.runLoop.wallClock() - *m_pulseStart) / kPulseDuration;
    // A clock that was set back must not keep the timer running until it has caught up.
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
