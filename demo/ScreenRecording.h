// What a part of the screen shows over a while, as often as the machine can look, each picture with the time for which
// it stood.
#pragma once

#include "testing/x11/X11Session.h"

#include <chrono>
#include <filesystem>
#include <vector>

namespace haloric {

class ScreenRecording {
public:
    // The session outlives it.
    ScreenRecording(X11Session& session, const ScreenRect& area) : m_session(&session), m_area(area) {}

    // Looks for so long. What stays the same is one frame.
    void record(std::chrono::milliseconds duration);

    // Writes frame-000.png … and frames.txt, which has a line for each: the name and the milliseconds. Throws
    // std::runtime_error when that fails.
    void save(const std::filesystem::path& folder) const;

    std::size_t frameCount() const { return m_frames.size(); }

private:
    struct Frame {
        ScreenImage picture;
        std::chrono::steady_clock::duration time{};
    };

    X11Session* m_session;
    ScreenRect m_area;
    std::vector<Frame> m_frames;
};

} // namespace haloric
