// Two separate clients that look at a window frame and at an overlay while the window is dragged: one notes when
// each of them moved, the other one samples both positions and counts how often they disagree.
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
    // Starts both threads. `frame` and `overlay` are children of the root window that stand still at this moment.
    MovementWatcher(const std::string& display, xcb_window_t frame, xcb_window_t overlay);
    ~MovementWatcher();

    struct Result {
        std::size_t frameMoves = 0;
        std::vector<double>
            lagMilliseconds; // from a move of the frame to the overlay's answer to it, or to a later one
        std::size_t samples = 0;
        std::size_t disagreements = 0;
    };

    // Ends both threads; called once, after the windows stand still again.
    Result finish();

private:
    struct Move {
        bool ofFrame = false;
        int x = 0; // relative to where that window stood at the start
        int y = 0;
        std::chrono::steady_clock::time_point at;
    };

    void noteMoves();
    void samplePositions();
    std::vector<double> lags() const;

    TestConnection m_moveConnection;
    TestConnection m_sampleConnection;
    xcb_window_t m_frame;
    xcb_window_t m_overlay;
    ScreenRect m_frameStart;
    ScreenRect m_overlayStart;
    std::atomic<bool> m_finished = false;
    std::vector<Move> m_moves; // the note-taking thread's, until it has ended
    std::size_t m_samples = 0;
    std::size_t m_disagreements = 0;
    std::thread m_noteTaker;
    std::thread m_sampler;
};

} // namespace haloric
