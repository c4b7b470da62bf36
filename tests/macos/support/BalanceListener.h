// Fails each test after which the substitute holds more than before it: timers, sources, observers, monitors, taps,
// links, status items, hotkeys, windows, objects of any class.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace haloric {

class BalanceListener final : public testing::EmptyTestEventListener {
public:
    // The kinds whose number differs, a line each; empty if none does.
    static std::string difference(const std::map<std::string, long>& before, const std::map<std::string, long>& after);

private:
    void OnTestStart(const testing::TestInfo& test) override;
    void OnTestEnd(const testing::TestInfo& test) override;

    void* m_pool = nullptr;
    std::map<std::string, long> m_before;
};

} // namespace haloric
