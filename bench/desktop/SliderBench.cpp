#include "desktop/Percentiles.h"
#include "desktop/TrayDesktop.h"
#include "desktop/UiBench.h"
#include "testing/x11/Key.h"
#include "testing/x11/Require.h"

#include <cstdio>
#include <thread>
#include <vector>

namespace haloric {
namespace {

using namespace std::chrono_literals;

// The handle's centre at the slider's ends, in root coordinates, found from the pixels that the keys change.
struct SliderTrack {
    int left = 0;
    int right = 0;
    int y = 0;
};

SliderTrack findTrack(TrayDesktop& desktop)
{
    DesktopObserver& observer = desktop.session().observer();
    constexpr int kInset = 24; // the highlight's border changes as well
    const ScreenRect all = desktop.shell().content();
    // The right half; the left half has the label with the value.
    const ScreenRect content{all.x + all.width / 2, all.y + kInset, all.width / 2 - kInset, all.height - 2 * kInset};
    const auto captureAfter = [&](std::uint32_t key) {
        const ScreenImage before = observer.capture(content);
        desktop.session().input().chord({key});
        require(observer.waitUntil([&] { return observer.capture(content) != before; }),
                "no slider has the keyboard focus");
        std::this_thread::sleep_for(200ms); // until the repaint is complete
        return observer.capture(content);
    };
    const ScreenImage atEnd = captureAfter(Key::kEnd);
    const ScreenImage atStart = captureAfter(Key::kHome);
    const ScreenRect changed = boundsOfDifference(atEnd, atStart);
    require(changed.width > 0, "the slider does not move");
    const int knob = changed.height / 2; // the handle is round
    return {changed.x + knob, changed.right() - knob, changed.y + knob};
}

// Drags the border width's slider and captures that border below the middle of the settings window.
class SliderDrag {
public:
    SliderDrag(TrayDesktop& desktop, const SliderTrack& track)
        : m_desktop(desktop),
          m_track(track),
          m_edge{desktop.shell().frame().x + desktop.shell().frame().width / 2, desktop.shell().frame().bottom() - 16,
                 1, 16}
    {
    }

    // Drags to the right end pixel by pixel. Returns the milliseconds until the border changed, for each motion that
    // changed it; most motions leave the value on its step.
    std::vector<double> stepToEnd()
    {
        std::vector<double> milliseconds;
        press(m_track.left);
        for (int x = m_track.left + 1; x <= m_track.right; ++x) {
            const ScreenImage before = capture();
            const auto begin = BenchClock::now();
            m_desktop.session().input().moveTo(x, m_track.y);
            if (comesTrue([&] { return capture() != before; }, 60ms))
                milliseconds.push_back(millisecondsSince(begin));
        }
        m_atRight = capture();
        release();
        return milliseconds;
    }

    // Drags from the right end to the left one and back at 125 Hz. Returns the milliseconds from the last motion until
    // the border looks as it did at the right end before.
    double sweep()
    {
        constexpr int kStepPixels = 4;
        press(m_track.right);
        auto next = BenchClock::now();
        const auto moveTo = [&](int x) {
            std::this_thread::sleep_until(next += 8ms);
            m_desktop.session().input().moveTo(x, m_track.y);
        };
        for (int x = m_track.right; x > m_track.left; x -= kStepPixels)
            moveTo(x);
        for (int x = m_track.left; x < m_track.right; x += kStepPixels)
            moveTo(x);
        moveTo(m_track.right);
        const auto begin = BenchClock::now();
        require(comesTrue([this] { return capture() == m_atRight; }, kTimeout), "the border is not final");
        const double milliseconds = millisecondsSince(begin);
        release();
        return milliseconds;
    }

private:
    ScreenImage capture() { return m_desktop.session().observer().capture(m_edge); }

    void press(int x)
    {
        m_desktop.session().input().moveTo(x, m_track.y);
        m_desktop.session().input().press();
    }

    void release()
    {
        m_desktop.session().input().release();
        m_desktop.session().observer().synchronize();
    }

    TrayDesktop& m_desktop;
    SliderTrack m_track;
    ScreenRect m_edge;
    ScreenImage m_atRight;
};

} // namespace

void measureSlider()
{
    constexpr int kTabsToBorderWidth = 5;
    constexpr int kSweeps = 10;
    TrayDesktop desktop;
    desktop.openSettings();
    for (int tab = 0; tab < kTabsToBorderWidth; ++tab)
        desktop.session().input().chord({Key::kTab});
    SliderDrag drag(desktop, findTrack(desktop));
    const auto steps = drag.stepToEnd();
    std::printf("slider, from a move of the pointer to the changed border on the screen: median %.2f ms, p99 %.2f ms "
                "of %zu changes\n",
                median(steps), percentile(steps, 0.99), steps.size());
    std::vector<double> sweeps;
    for (int sweep = 0; sweep < kSweeps; ++sweep)
        sweeps.push_back(drag.sweep());
    std::printf("slider dragged at 125 Hz: the border is final %.2f ms after the last move, at most %.2f ms of %d "
                "drags\n",
                median(sweeps), percentile(sweeps, 1), kSweeps);
}

} // namespace haloric
