// Two clients that observe a window frame and its overlay during a drag. One records the time of every move of either;
// the other samples both positions and counts how often they disagree. Each has its own thread and connection.
#pragma once

#include "testing/x11/TestConnection.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

namespace haloric {

class MovementWatcher {
public:
    // Starts both threads. `frame` and `overlay` are children of the root window that do not move at this moment.
    MovementWatcher(const std::string& display, xcb_window_t frame, xcb_window_t overlay);
    ~MovementWatcher();

    struct Result {
        std::size_t frameMoves = 0;
        std::vector<double>
            lagMilliseconds; // from a move of the frame to the overlay's move to that place or a later one
        std::size_t samples = 0;
        std::size_t disagreements = 0;
    };

    // Ends both threads. Call it once, after the last move.
    Result finish();

private:
    struct Move {
        bool ofFrame = false;
        int x = 0; // pixels, relative to the start position of that window
        int y = 0;
        std::chrono::steady_clock::time_point at;
    };

    void recordMoves();
    void samplePositions();
    std::vector<double> lags() const;

    TestConnection m_moveConnection;
    TestConnection m_sampleConnection;
    xcb_window_t m_frame;
    xcb_window_t m_overlay;
    ScreenRect m_frameStart;
    ScreenRect m_overlayStart;
    std::atomic<bool> m_finished = false;
    std::vector<Move> m_moves; // owned by m_recorder until it has ended
    std::size_t m_samples = 0;
    std::size_t m_disagreements = 0;
    std::thread m_recorder;
    std::thread m_sampler;
};

} // namespace haloric
