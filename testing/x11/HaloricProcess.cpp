#include "testing/x11/HaloricProcess.h"

#include <algorithm>
#include <fstream>

namespace haloric {
namespace {

ChildProcess::Options prepare(X11Session& session, const std::string& settings,
                              const std::vector<std::string>& arguments, const Environment& added,
                              const std::filesystem::path& program)
{
    ChildProcess::Options options = HaloricProcess::start(arguments, session.environment(), program);
    for (const auto& [name, value] : added)
        options.environment[name] = value;
    if (!settings.empty()) {
        const auto stored = HaloricProcess::settingsFile(options.environment);
        std::filesystem::create_directories(stored.parent_path());
        std::ofstream(stored) << settings;
    }
    return options;
}

} // namespace

HaloricProcess::HaloricProcess(X11Session& session, const std::string& settings,
                               const std::vector<std::string>& arguments, const Environment& added,
                               const std::filesystem::path& file)
    : m_session(session),
      m_process(prepare(session, settings, arguments, added, file))
{
}

ChildProcess::Options HaloricProcess::start(const std::vector<std::string>& arguments, const Environment& environment,
                                            const std::filesystem::path& program)
{
    ChildProcess::Options options{{program.string()}, environment, {}, -1};
    options.command.insert(options.command.end(), arguments.begin(), arguments.end());
    return options;
}

std::filesystem::path HaloricProcess::settingsFile(const Environment& environment)
{
    return std::filesystem::path(environment.at("XDG_CONFIG_HOME")) / "com.kestrow.haloric" / "Haloric.settings.v1";
}

std::optional<RootChild> HaloricProcess::waitForHighlight(const ScreenRect& frame, std::chrono::milliseconds timeout)
{
    std::optional<RootChild> found;
    const auto isAround = [&frame](const RootChild& child) {
        const ScreenRect& outer = child.geometry;
        return outer.x <= frame.x && outer.y <= frame.y && outer.right() >= frame.right() &&
               outer.bottom() >= frame.bottom() && std::abs(outer.x + outer.right() - frame.x - frame.right()) <= 2 &&
               std::abs(outer.y + outer.bottom() - frame.y - frame.bottom()) <= 2;
    };
    const auto isDecided = [&] {
        const auto all = overlays();
        const auto highlight = std::find_if(all.begin(), all.end(), isAround);
        if (highlight != all.end())
            found = *highlight;
        return found || !m_process.isRunning();
    };
    return m_session.observer().waitUntil(isDecided, timeout) ? found : std::nullopt;
}

bool HaloricProcess::waitForNothing(std::chrono::milliseconds timeout)
{
    return m_session.observer().waitUntil([this] { return overlays().empty(); }, timeout);
}

} // namespace haloric
