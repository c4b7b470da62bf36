// Plays the steps of a scenario on a new session, and runs the checkers after every event and every step.
#pragma once

#include "hosts/sim/scenario/checks/SimCheckers.h"
#include "hosts/sim/scenario/session/SimSession.h"
#include "hosts/sim/scenario/steps/SimStep.h"

#include <cstdint>
#include <string_view>

namespace haloric {

class SimPlayer {
public:
    enum class UnknownNames { fail, skip };

    // How often something has happened; expectations count from the last mark.
    struct Counts {
        std::uint64_t pulses = 0;
        std::uint64_t moved = 0;   // overlay moves through the toolkit
        std::uint64_t carried = 0; // through transactions
        std::uint64_t drawn = 0;
        std::uint64_t saves = 0;
        std::uint64_t queries = 0;
    };

    // Time without input after which the program must be at rest.
    static constexpr Seconds kRest{3.0};

    // Starts the program.
    SimPlayer(const SimSetup& setup, UnknownNames unknownNames, const SimAdapterFactory& makeAdapters = nullptr);

    // Throws SimFailure when a check fails, SimScenarioError when the step cannot be played.
    void play(const SimStep& step);

    // Advances virtual time. Throws SimScenarioError for a time beyond a day after the start.
    void advance(Seconds duration);

    // Ends all input, advances virtual time, and checks the state at rest.
    void rest(Seconds duration = kRest);

    // Virtual time since the start.
    Seconds now() const { return m_session.desktop().runLoop.now(); }

    SimSession& session() { return m_session; }
    SimDesktop& desktop() { return m_session.desktop(); }

    // The object that the argument names. Throw SimUnknownName.
    SimApp& app(const SimJson& arguments, const char* key = "app");
    SimWindow& window(const SimJson& arguments, const char* key = "window");
    SimScreen& screen(const SimJson& arguments, const char* key = "screen");

    Counts counts() const;
    Counts countsSinceMark() const;
    void mark() { m_mark = counts(); }

private:
    void watchPulse();

    SimSession m_session;
    SimCheckers m_checkers;
    UnknownNames m_unknownNames;
    std::uint64_t m_pulses = 0;
    bool m_pulseRan = false;
    double m_pulseProgress = 0;
    Counts m_mark;
};

} // namespace haloric
