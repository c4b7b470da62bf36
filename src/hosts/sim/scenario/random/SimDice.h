// Random numbers for scenarios: the same seed gives the same numbers on every system and with every library.
#pragma once

#include <cmath>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

namespace haloric {

class SimDice {
public:
    explicit SimDice(std::uint64_t seed) : m_engine(seed) {}

    // From 0 on, below `count`, which is at least 1.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(m_engine() % count); }

    std::int64_t between(std::int64_t least, std::int64_t most)
    {
        return least + static_cast<std::int64_t>(below(static_cast<std::size_t>(most - least + 1)));
    }

    // A whole number, sometimes half a one more.
    double halves(std::int64_t least, std::int64_t most)
    {
        const auto whole = static_cast<double>(between(least, most));
        return chance(0.1) ? whole + 0.5 : whole;
    }

    double fraction() { return static_cast<double>(m_engine() >> 11) * 0x1p-53; } // 0 to below 1
    bool chance(double probability) { return fraction() < probability; }
    bool coin() { return (m_engine() & 1) != 0; }

    // Whole milliseconds, so that a written scenario stays readable; in seconds.
    double milliseconds(double least, double most)
    {
        return std::round((least + (most - least) * fraction()) * 1000) / 1000;
    }

    template <class Item>
    const Item& pick(const std::vector<Item>& items)
    {
        return items[below(items.size())];
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace haloric
