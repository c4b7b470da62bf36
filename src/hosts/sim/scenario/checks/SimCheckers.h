// Checks the program and the desktop from outside and throws SimFailure: after every event of the main loop what must
// always hold, after every step what costs more to check, and at rest the final state.
#pragma once

#include "hosts/sim/scenario/session/SimSession.h"

#include <cstdint>

namespace haloric {

class SimCheckers {
public:
    // The session outlives the checkers, and has been started.
    explicit SimCheckers(SimSession& session);

    void afterEvent();
    void afterStep();

    // After time without input.
    void atRest();

private:
    struct FastPath {
        bool available = true;
        bool verified = false;
    };

    void checkQueries();
    void checkVisibility();
    void checkFastPath();
    void checkResources();
    void checkWindowList();

    void checkHighlightAtRest();
    void checkDimAtRest();
    void checkAppDimAtRest();
    void checkQuietAtRest();
    void checkContentsAtRest();

    SimSession& m_session;
    WindowList m_windowList;
    std::uint64_t m_queries = 0;
    FastPath m_fastPath;
};

} // namespace haloric
