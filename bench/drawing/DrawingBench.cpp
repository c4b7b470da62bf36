// The time to draw the highlight and the dimming, compared with writing the same pixels once and with Cairo
// (ShadowPeers.h). Repetitions are interleaved, so that other load affects all benchmarks alike; compare medians of one
// run.
#include "drawing/BenchOverlay.h"
#include "drawing/Bounds.h"
#include "drawing/ShadowPeers.h"
#include "overlay/DimView.h"

#include <cmath>

namespace haloric::bench {
namespace {

// Writes the pixels of the glow once.
void limit(benchmark::State& state)
{
    BenchOverlay overlay(state);
    const std::vector<PixelRect> ring = overlay.ring();
    std::uint32_t pixel = 0x80000080;
    for (auto _ : state) {
        for (const PixelRect& rect : ring)
            for (int y = rect.y; y < rect.maxY(); ++y)
                fillPixels(overlay.buffer().row(y) + rect.x, static_cast<std::size_t>(rect.width), pixel);
        benchmark::ClobberMemory();
        ++pixel;
    }
}

void glow(benchmark::State& state)
{
    BenchOverlay overlay(state);
    for (auto _ : state) {
        overlay.draw(RasterContents::transparent);
        benchmark::ClobberMemory();
    }
}

// Draws the glow over existing pixels.
void glowOver(benchmark::State& state)
{
    BenchOverlay overlay(state);
    for (auto _ : state) {
        overlay.draw(RasterContents::kept);
        benchmark::ClobberMemory();
    }
}

// One step of a resize: clears the old ring and draws the new one.
void resizeStep(benchmark::State& state)
{
    BenchOverlay overlay(state);
    bool smaller = false;
    for (auto _ : state) {
        for (const PixelRect& rect : overlay.ring())
            for (int y = rect.y; y < rect.maxY(); ++y)
                fillPixels(overlay.buffer().row(y) + rect.x, static_cast<std::size_t>(rect.width), 0);
        smaller = !smaller;
        overlay.view.windowRect.width = overlay.window.width - (smaller ? 7 : 0);
        overlay.view.windowRect.height = overlay.window.height - (smaller ? 5 : 0);
        overlay.draw(RasterContents::transparent);
        benchmark::ClobberMemory();
    }
}

void glowAndBorder(benchmark::State& state)
{
    BenchOverlay overlay(state);
    overlay.view.settings.borderEnabled = true;
    for (auto _ : state) {
        overlay.draw(RasterContents::transparent);
        benchmark::ClobberMemory();
    }
}

void border(benchmark::State& state, double alpha)
{
    BenchOverlay overlay(state);
    overlay.view.settings.glowEnabled = false;
    overlay.view.settings.borderEnabled = true;
    overlay.view.settings.borderColor = {false, {1, 0.4, 0, alpha}};
    for (auto _ : state) {
        overlay.draw(RasterContents::kept);
        benchmark::ClobberMemory();
    }
}

void borderOpaque(benchmark::State& state) { border(state, 1); }
void borderTranslucent(benchmark::State& state) { border(state, 0.5); }

// One frame of the pulse over glow and border, drawn in the region where two frames can differ.
void pulseFrame(benchmark::State& state)
{
    BenchOverlay overlay(state);
    overlay.view.settings.borderEnabled = true;
    overlay.view.settings.pulseEnabled = true;
    constexpr int kFrames = 33; // 0.55 s at 60 Hz
    int frame = 0;
    std::vector<PixelRect> damage;
    for (auto _ : state) {
        const double before = frame / static_cast<double>(kFrames);
        frame = frame % kFrames + 1;
        const double now = frame / static_cast<double>(kFrames);
        damage.clear();
        for (const Rect& rect : overlay.view.pulseDamage(before, now)) {
            const int left = static_cast<int>(std::floor(rect.minX()));
            const int top = static_cast<int>(std::floor(overlay.size.height - rect.maxY()));
            damage.push_back({left, top, static_cast<int>(std::ceil(rect.maxX())) - left,
                              static_cast<int>(std::ceil(overlay.size.height - rect.minY())) - top});
        }
        overlay.view.pulseProgress = now;
        overlay.draw(damage);
        benchmark::ClobberMemory();
    }
}

void writeWholeOverlay(benchmark::State& state)
{
    BenchOverlay overlay(state);
    const PixelBuffer buffer = overlay.buffer();
    for (auto _ : state) {
        for (int y = 0; y < buffer.height; ++y)
            fillPixels(buffer.row(y), static_cast<std::size_t>(buffer.width), 0x59000000);
        benchmark::ClobberMemory();
    }
}

void dimHole(benchmark::State& state)
{
    BenchOverlay overlay(state);
    DimView view;
    view.settings.dimEnabled = true;
    view.holeRect = Rect{overlay.size.width / 4, overlay.size.height / 4, 1200, 800};
    for (auto _ : state) {
        RasterCanvas canvas(overlay.resources, overlay.buffer(), overlay.rasterView(), RasterContents::transparent);
        view.draw(canvas, overlay.bounds());
        benchmark::ClobberMemory();
    }
}

// One step of a moving hole: draws the old and the new place of it.
void dimHoleMoves(benchmark::State& state)
{
    BenchOverlay overlay(state);
    DimView view;
    view.settings.dimEnabled = true;
    const Rect hole{overlay.size.width / 4, overlay.size.height / 4, overlay.size.width / 4, overlay.size.height / 4};
    const PixelRect damage{static_cast<int>(hole.x) - 1, static_cast<int>(overlay.size.height - hole.maxY()) - 1,
                           static_cast<int>(hole.width) + 9, static_cast<int>(hole.height) + 3};
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % 8;
        view.holeRect = hole.translatedBy(step, 0);
        RasterCanvas canvas(overlay.resources, overlay.buffer(), overlay.rasterView(), RasterContents::cleared,
                            std::span(&damage, 1));
        view.draw(canvas, overlay.bounds());
        benchmark::ClobberMemory();
    }
}

// A glow without a cached patch, as while a slider is dragged. The argument is the blur radius in pixels.
void coldPatch(benchmark::State& state)
{
    constexpr int unit = DeviceShape::kUnit;
    const auto key = GlowKey::of({0, 0, 1200 * unit, 800 * unit, 11 * unit}, static_cast<double>(state.range(0)),
                                 {{0, 0.5, 1, 0.8}, {0, 0.5, 1, 1}});
    for (auto _ : state)
        benchmark::DoNotOptimize(GlowPatch(*key));
}

// One frame of 3840x2160 pixels whose highlight has any stored values, with nothing cached. The arguments are the
// corner radius and the glow radius in points, and the scale.
void anyValue(benchmark::State& state)
{
    constexpr int width = 3840;
    constexpr int height = 2160;
    const auto scale = static_cast<double>(state.range(2));
    const Size view{width / scale, height / scale};
    HighlightView highlight;
    highlight.settings.cornerRadius = static_cast<double>(state.range(0));
    highlight.settings.glowRadius = static_cast<double>(state.range(1));
    highlight.settings.borderWidth = 12;
    highlight.settings.tintEnabled = true;
    highlight.tintHeight = view.height;
    highlight.windowRect = Rect{0, 0, view.width, view.height}.insetBy(view.height / 8 + 0.3);
    const PixelBuffer buffer{BenchOverlay::memory().pixels.data(), width, height,
                             width * static_cast<int>(sizeof(std::uint32_t))};
    for (auto _ : state) {
        RasterResources resources;
        RasterCanvas canvas(resources, buffer, {scale, view, 0, 0}, RasterContents::cleared);
        highlight.draw(canvas, {0, 0, view.width, view.height});
        benchmark::ClobberMemory();
    }
}

PeerGlow peerGlow(const BenchOverlay& overlay)
{
    return {overlay.view.windowRect, overlay.view.settings.cornerRadius, overlay.view.settings.glowRadius};
}

void peerNinePatch(benchmark::State& state)
{
    BenchOverlay overlay(state);
    const NinePatchPeer peer(peerGlow(overlay));
    for (auto _ : state) {
        peer.draw(overlay.buffer(), peerGlow(overlay));
        benchmark::ClobberMemory();
    }
}

void peerBoxBlurs(benchmark::State& state)
{
    BenchOverlay overlay(state);
    for (auto _ : state) {
        drawWithBoxBlurs(overlay.buffer(), peerGlow(overlay));
        benchmark::ClobberMemory();
    }
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Unit(benchmark::kMillisecond);
    for (const auto& size : {std::pair{1200, 800}, {2560, 1440}, {3840, 2160}, {5120, 2880}})
        benchmark->Args({size.first, size.second});
}

BENCHMARK(limit)->Apply(sizes);
BENCHMARK(glow)->Apply(sizes);
BENCHMARK(glowOver)->Apply(sizes);
BENCHMARK(resizeStep)->Apply(sizes);
BENCHMARK(glowAndBorder)->Apply(sizes);
BENCHMARK(borderOpaque)->Apply(sizes);
BENCHMARK(borderTranslucent)->Apply(sizes);
BENCHMARK(pulseFrame)->Apply(sizes);
BENCHMARK(writeWholeOverlay)->Apply(sizes);
BENCHMARK(dimHole)->Apply(sizes);
BENCHMARK(dimHoleMoves)->Apply(sizes);
BENCHMARK(coldPatch)->Unit(benchmark::kMillisecond)->Arg(4)->Arg(18)->Arg(60)->Arg(120);
BENCHMARK(anyValue)
    ->Unit(benchmark::kMillisecond)
    ->ArgsProduct({{0, 11, 300, 1'000'000}, {1, 18, 60, 1'000'000}, {1, 2, 4}});
BENCHMARK(peerNinePatch)->Apply(sizes);
BENCHMARK(peerBoxBlurs)->Apply(sizes);

} // namespace
} // namespace haloric::bench

int main(int argc, char** argv)
{
    haloric::bench::BenchOverlay::memory(); // allocates its pages before the first benchmark
    // Options of the command line follow and override these.
    std::vector<std::string> defaults{"--benchmark_repetitions=15", "--benchmark_min_time=0.01",
                                      "--benchmark_enable_random_interleaving=true",
                                      "--benchmark_report_aggregates_only=true"};
    std::vector<char*> arguments{argv[0]};
    for (std::string& argument : defaults)
        arguments.push_back(argument.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    haloric::bench::MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return haloric::bench::checkBounds(reporter.medians()) ? 0 : 1;
}
