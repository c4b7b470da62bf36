// A clock whose time passes only while the main loop waits, at once, while one exists. Main thread.
#pragma once

#include "loop/Clock.h"

#include <algorithm>

namespace haloric {

class ManualClock final : public substitute::Clock {
public:
    ManualClock() { substitute::setClock(this); }
    ~ManualClock() override { substitute::setClock(nullptr); }
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;

    double now() const override { return m_now; }
    double secondsSince1970() const override { return 1'700'000'000 + m_now; }
    void waitUntil(double instant) override { m_now = std::max(m_now, instant); }
    void wake() override {}
    bool hasThreads() const override { return false; }

    // As if the machine were busy: nothing runs meanwhile.
    void pass(double seconds) { m_now += seconds; }

private:
    double m_now = 1000; // seconds
};

} // namespace haloric
