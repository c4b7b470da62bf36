#include "x11/program/shell/Shell.h"

#include "settings/SettingsCodec.h"
#include "testing/x11/FileContents.h"

#include <cmath>

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
    return SettingsCodec::decode(contentsOf(HaloricProcess::settingsFile(session.environment())));
}

bool Shell::waitForStored(const std::function<bool(const Settings&)>& predicate)
{
    const bool isStored = session.observer().waitUntil([&] {
        const auto now = stored();
        return now && predicate(*now);
    });
    if (!isStored)
        session.keepFailure(nameOfTest() + "-stored");
    return isStored;
}

Pixel pixelOf(const RGBA& color)
{
    const auto channel = [](double value) { return static_cast<Pixel>(std::lround(value * 255)); };
    return channel(color.r) << 16 | channel(color.g) << 8 | channel(color.b);
}

} // namespace haloric
