// An overlay around a window of the benchmark's size. All benchmarks share one buffer, as fresh pages would cost more
// than drawing.
#pragma once

#include "drawing/raster/Picture.h"
#include "drawing/raster/RasterCanvas.h"
#include "overlay/HighlightView.h"

#include <benchmark/benchmark.h>

namespace haloric::bench {

struct BenchOverlay {
    static constexpr int kMargin = 40; // around the window, as for the default glow
    static constexpr Size kLargest{5120, 2880};

    Size window;
    Size size{window.width + 2 * kMargin, window.height + 2 * kMargin};
    HighlightView view;
    RasterResources resources;

    explicit BenchOverlay(const benchmark::State& state)
        : window{static_cast<double>(state.range(0)), static_cast<double>(state.range(1))}
    {
        view.settings.borderEnabled = false;
        view.settings.pulseEnabled = false;
        view.windowRect = {kMargin, kMargin, window.width, window.height};
    }

    static Picture& memory()
    {
        static Picture picture(static_cast<int>(kLargest.width) + 2 * kMargin,
                               static_cast<int>(kLargest.height) + 2 * kMargin);
        return picture;
    }

    PixelBuffer buffer() const
    {
        const int width = static_cast<int>(size.width);
        return {memory().pixels.data(), width, static_cast<int>(size.height),
                width * static_cast<int>(sizeof(std::uint32_t))};
    }

    Rect bounds() const { return {0, 0, size.width, size.height}; }

    RasterView rasterView() const { return {1, size, 0, 0}; }

    void draw(RasterContents contents)
    {
        RasterCanvas canvas(resources, buffer(), rasterView(), contents);
        view.draw(canvas, bounds());
    }

    void draw(std::span<const PixelRect> damage)
    {
        RasterCanvas canvas(resources, buffer(), rasterView(), RasterContents::cleared, damage);
        view.draw(canvas, bounds());
    }

    // The pixels that the glow covers: four bars around the window and the four corners inside it.
    std::vector<PixelRect> ring() const
    {
        const int reach = static_cast<int>(view.settings.glowRadius);
        const int corner = static_cast<int>(view.settings.cornerRadius);
        const int width = static_cast<int>(window.width) + 2 * reach;
        const int height = static_cast<int>(view.windowRect.height);
        const int left = kMargin - reach;
        const int top = static_cast<int>(size.height - view.windowRect.maxY()) - reach;
        const int right = left + width - reach;
        const int bottom = top + reach + height;
        std::vector<PixelRect> rects{{left, top, width, reach},
                                     {left, bottom, width, reach},
                                     {left, top + reach, reach, height},
                                     {right, top + reach, reach, height}};
        for (const int x : {left + reach, right - corner})
            for (const int y : {top + reach, bottom - corner})
                rects.push_back({x, y, corner, corner});
        return rects;
    }
};

} // namespace haloric::bench
