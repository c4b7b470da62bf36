// The actions of haloric-sim. Each returns the exit code.
#pragma once

#include "hosts/sim/program/SimOptions.h"

namespace haloric {

class SimProgram {
public:
    static constexpr int kSuccess = 0;
    static constexpr int kFailure = 1;
    static constexpr int kWrongUse = 2;

    explicit SimProgram(const SimOptions& options) : m_options(options) {}

    int run();

private:
    int replay();
    int playRandomly();
    int printSchema();

    const SimOptions& m_options;
};

} // namespace haloric
