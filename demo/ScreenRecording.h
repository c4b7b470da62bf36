// A recording of a part of the screen: pictures, as many as the machine can capture, each with its duration.
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

    // Captures for `duration`. Equal consecutive pictures become one frame.
    void record(std::chrono::milliseconds duration);

    // Writes frame-000.png … and frames.txt, with one line per frame: file name and milliseconds. Throws
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
