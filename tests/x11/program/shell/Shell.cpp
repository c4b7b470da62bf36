#include "x11/program/shell/Shell.h"

#include "settings/SettingsCodec.h"

#include <cmath>
#include <fstream>
#include <iterator>

namespace haloric {

void Shell::startInTray(const std::string& settings)
{
    client = openFocused({.content = {700, 600, 500, 300}});
    haloric = std::make_unique<HaloricProcess>(session, settings, std::vector<std::string>{}, Environment{},
                                               bundle ? bundle->program() : HaloricProcess::program());
    ASSERT_TRUE(haloric->waitForHighlight(client->visibleFrame()).has_value()) << log();
    shell.emplace(session, panel, *haloric);
}

std::optional<int> Shell::startAnother(const std::vector<std::string>& arguments)
{
    const auto program = bundle ? bundle->program() : HaloricProcess::program();
    return HaloricProcess(session, {}, arguments, {}, program).process().waitForExit();
}

std::optional<Settings> Shell::stored()
{
    std::ifstream file(HaloricProcess::settingsFile(session.environment()), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return SettingsCodec::decode(bytes);
}

bool Shell::waitForStored(const std::function<bool(const Settings&)>& predicate)
{
    const bool isThere = session.observer().waitUntil([&] {
        const auto now = stored();
        return now && predicate(*now);
    });
    if (!isThere)
        session.keepFailure(nameOfTest() + "-stored");
    return isThere;
}

bool Shell::waitForPixel(int x, int y, Pixel color)
{
    return session.waitForPixels(nameOfTest() + "-pixel", {x, y, 1, 1}, [&](const ScreenImage& now) {
        return colorDistance(now.at(x, y), color) <= kTolerance;
    });
}

bool Shell::waitForOtherPixel(int x, int y, Pixel color)
{
    return session.waitForPixels(nameOfTest() + "-pixel", {x, y, 1, 1}, [&](const ScreenImage& now) {
        return colorDistance(now.at(x, y), color) > kTolerance;
    });
}

Pixel pixelOf(const RGBA& color)
{
    const auto channel = [](double value) { return static_cast<Pixel>(std::lround(value * 255)); };
    return channel(color.r) << 16 | channel(color.g) << 8 | channel(color.b);
}

} // namespace haloric
