// A highlight view of one window with every effect switched off, and what it draws.
#pragma once

#include "overlay/HighlightView.h"

#include "drawing/RecordingCanvas.h"

#include <gtest/gtest.h>

#include <vector>

namespace haloric {

class HighlightViewFixture : public testing::Test {
protected:
    using Recorded = RecordingCanvas;
    using Calls = std::vector<RecordingCanvas::Call>;

    static constexpr Rect kWindow{40, 40, 300, 200};
    static constexpr Rect kBounds{0, 0, 380, 280};
    static constexpr RGBA kAccent{0.1, 0.2, 0.3, 0.4};
    static constexpr RGBA kCustom{0.5, 0.6, 0.7, 0.8};
    static constexpr Color kAccentColor{0.1, 0.2, 0.3, 0.4};
    static constexpr Color kCustomColor{0.5, 0.6, 0.7, 0.8};

    HighlightViewFixture()
    {
        view.windowRect = kWindow;
        view.settings.accent = kAccent;
        view.settings.borderEnabled = false;
        view.settings.glowEnabled = false;
        view.settings.tintEnabled = false;
        view.settings.pulseEnabled = false;
    }

    Calls draw()
    {
        RecordingCanvas canvas;
        view.draw(canvas, kBounds);
        EXPECT_EQ(canvas.openSaves(), 0U);
        return canvas.calls();
    }

    HighlightView view;
};

} // namespace haloric
