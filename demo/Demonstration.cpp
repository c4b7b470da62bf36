#include "demo/Demonstration.h"

#include "demo/DemoPictures.h"
#include "demo/DemoSteps.h"
#include "demo/SampleWindows.h"

#include <algorithm>
#include <chrono>

namespace haloric {
namespace {

constexpr int kWidth = 1600;
constexpr int kHeight = 1000;
constexpr int kPulseMargin = 60;
constexpr int kVisibleDifference = 12;
constexpr std::chrono::milliseconds kPulseTimeout{1500};

std::size_t changedPixels(const ScreenImage& a, const ScreenImage& b)
{
    std::size_t count = 0;
    const auto& before = a.pixels();
    const auto& after = b.pixels();
    for (std::size_t index = 0; index < std::min(before.size(), after.size()); ++index)
        count += colorDistance(before[index], after[index]) > kVisibleDifference ? 1U : 0U;
    return count;
}

} // namespace

Demonstration::Demonstration(std::filesystem::path folder)
    : m_folder(std::move(folder)),
      m_session(WindowManager::openbox, Compositor::picom, {.width = kWidth, .height = kHeight})
{
    m_session.observer().setDesktopPicture(paintDesktop(kWidth, kHeight));
    m_notes = openSample(m_session, SampleApplication::notes, {120, 130, 620, 420});
    m_gallery = openSample(m_session, SampleApplication::gallery, {880, 110, 560, 380});
    m_terminal = openSample(m_session, SampleApplication::terminal, {560, 480, 600, 380});
}

void Demonstration::run()
{
    focus(*m_notes);
    start("{}");
    showFocus();
    showPulse();
    showDrag();
    stop();
    showDimming("5-dim-all-windows", "everything but the focused window is dimmed",
                R"({"dimEnabled": true, "dimOpacity": 0.45})");
    showDimming(
        "6-dim-selected-apps", "only the terminal is dimmed while another window has the focus",
        R"({"dimEnabled": true, "dimOpacity": 0.6, "dimScope": "selectedApps", "dimApps": ["SampleTerminal"]})");
}

void Demonstration::start(const std::string& settings)
{
    m_haloric = std::make_unique<HaloricProcess>(m_session, settings);
}

void Demonstration::stop()
{
    haloric::stop(*m_haloric);
    m_haloric.reset();
}

void Demonstration::focus(TestClient& client) { require(client.focus(), "the focus cannot be moved"); }

void Demonstration::showFocus()
{
    requireHighlight(*m_haloric, m_notes->visibleFrame());
    keep(settledScreen(m_session), "1-focus", "the focused window has a border and a glow");
}

void Demonstration::showPulse()
{
    const ScreenRect around = grown(m_gallery->visibleFrame(), kPulseMargin);
    const ScreenImage before = m_session.observer().capture(around);
    focus(*m_gallery);
    ScreenImage widest;
    std::size_t most = 0;
    // Runs until the timeout, as the widest moment is known only afterwards.
    (void)m_session.observer().waitUntil(
        [&] {
            ScreenImage now = m_session.observer().capture();
            const std::size_t changed = changedPixels(before, m_session.observer().capture(around));
            if (changed > most) {
                most = changed;
                widest = std::move(now);
            }
            return false;
        },
        kPulseTimeout);
    const ScreenImage after = settledScreen(m_session);
    const std::size_t remaining = changedPixels(before, m_session.observer().capture(around));
    require(most > remaining, "no pulse was seen after the focus had moved");
    keep(widest, "2-pulse", "the focus moves: a pulse runs outwards from the newly focused window");
    keep(after, "3-focus-moved", "the border and the glow have followed the focus");
}

void Demonstration::showDrag()
{
    require(m_session.dragByTitleBar(*m_gallery, -160, 80), "the window cannot be dragged");
    requireHighlight(*m_haloric, m_gallery->visibleFrame());
    keep(m_session.observer().capture(), "4-drag", "in the middle of a drag, the button still down");
    m_session.input().release();
    settledScreen(m_session);
}

void Demonstration::showDimming(const char* name, const char* description, const std::string& settings)
{
    const ScreenImage before = settledScreen(m_session); // the previous program's highlight is gone by then
    start(settings);
    requireHighlight(*m_haloric, m_gallery->visibleFrame());
    const ScreenImage after = settledScreen(m_session);
    const auto middle = [&](const ScreenImage& image) {
        const ScreenRect content = m_terminal->content();
        return image.at(content.x + content.width / 2, content.bottom() - 20);
    };
    require(colorDistance(middle(before), middle(after)) > kVisibleDifference, "the other windows are not dimmed");
    keep(after, name, description);
    stop();
}

void Demonstration::keep(const ScreenImage& picture, const char* name, const char* description)
{
    keepPicture(picture, m_folder / (std::string(name) + ".png"), description);
}

} // namespace haloric
