#include "demo/ScreenRecording.h"

#include "demo/DemoSteps.h"

#include <cstdio>
#include <fstream>

namespace haloric {

void ScreenRecording::record(std::chrono::milliseconds duration)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + duration;
    auto since = Clock::now();
    while (since < end) {
        ScreenImage now = m_session->observer().capture(m_area);
        if (m_frames.empty() || m_frames.back().picture != now)
            m_frames.push_back({std::move(now), {}});
        const auto moment = Clock::now();
        m_frames.back().time += moment - since;
        since = moment;
    }
}

void ScreenRecording::save(const std::filesystem::path& folder) const
{
    std::filesystem::create_directories(folder);
    std::ofstream list(folder / "frames.txt");
    for (std::size_t index = 0; index < m_frames.size(); ++index) {
        char name[32];
        std::snprintf(name, sizeof name, "frame-%03zu.png", index);
        require(m_frames[index].picture.savePng(folder / name), "cannot write " + (folder / name).string());
        list << name << ' ' << std::chrono::round<std::chrono::milliseconds>(m_frames[index].time).count() << '\n';
    }
    require(list.good(), "cannot write " + (folder / "frames.txt").string());
}

} // namespace haloric
