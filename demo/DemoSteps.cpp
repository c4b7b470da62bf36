#include "demo/DemoSteps.h"

#include <chrono>
#include <cstdio>

namespace haloric {
namespace {

constexpr std::chrono::milliseconds kStillness{500};
constexpr ScreenRect kEverything{0, 0, 1 << 15, 1 << 15};

} // namespace

ScreenImage settledScreen(X11Session& session) { return settledScreen(session, kEverything); }

ScreenImage settledScreen(X11Session& session, const ScreenRect& area)
{
    ScreenImage last = session.observer().capture(area);
    auto since = std::chrono::steady_clock::now();
    const bool isStill = session.observer().waitUntil([&] {
        ScreenImage now = session.observer().capture(area);
        const auto moment = std::chrono::steady_clock::now();
        if (now != last) {
            last = std::move(now);
            since = moment;
        }
        return moment - since >= kStillness;
    });
    require(isStill, "the screen does not stop changing");
    return last;
}

void requireHighlight(HaloricProcess& haloric, const ScreenRect& frame)
{
    require(haloric.waitForHighlight(frame).has_value(),
            "no highlight around the focused window:\n" + haloric.process().standardError());
}

void stop(HaloricProcess& haloric)
{
    require(haloric.stop() == 0, "the program does not end cleanly:\n" + haloric.process().standardError());
}

void keepPicture(const ScreenImage& picture, const std::filesystem::path& file, const std::string& description)
{
    require(picture.savePng(file), "cannot write " + file.string());
    std::printf("%s: %s\n", file.c_str(), description.c_str());
    std::fflush(stdout);
}

} // namespace haloric
