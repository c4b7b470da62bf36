// What changed about a watched window: a set of kinds, as bits of a 64-bit raw value.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>

namespace haloric {

class WindowServerChanges {
public:
    static const WindowServerChanges moved;
    static const WindowServerChanges resized;
    static const WindowServerChanges other; // destroyed or ordered out

    constexpr WindowServerChanges() = default;
    constexpr explicit WindowServerChanges(std::uint64_t rawValue) : m_rawValue(rawValue) {}
    constexpr WindowServerChanges(std::initializer_list<WindowServerChanges> members)
    {
        for (const auto& member : members)
            m_rawValue |= member.m_rawValue;
    }

    constexpr std::uint64_t rawValue() const { return m_rawValue; }
    constexpr bool isEmpty() const { return m_rawValue == 0; }
    constexpr bool contains(WindowServerChanges other_) const { return isSuperset(other_); }
    constexpr bool isSubset(WindowServerChanges of) const { return (m_rawValue & ~of.m_rawValue) == 0; }
    constexpr bool isSuperset(WindowServerChanges of) const { return of.isSubset(*this); }
    constexpr bool isDisjoint(WindowServerChanges with) const { return (m_rawValue & with.m_rawValue) == 0; }

    constexpr WindowServerChanges unionWith(WindowServerChanges b) const
    {
        return WindowServerChanges(m_rawValue | b.m_rawValue);
    }
    constexpr WindowServerChanges intersection(WindowServerChanges b) const
    {
        return WindowServerChanges(m_rawValue & b.m_rawValue);
    }
    constexpr WindowServerChanges symmetricDifference(WindowServerChanges b) const
    {
        return WindowServerChanges(m_rawValue ^ b.m_rawValue);
    }

    constexpr void insert(WindowServerChanges b) { m_rawValue |= b.m_rawValue; }
    // Inserts `with` and returns the part of it that was contained before; no value if that is empty.
    constexpr std::optional<WindowServerChanges> update(WindowServerChanges with)
    {
        const WindowServerChanges before = intersection(with);
        insert(with);
        return before.isEmpty() ? std::nullopt : std::optional(before);
    }

    constexpr void remove(WindowServerChanges b) { m_rawValue &= ~b.m_rawValue; }

    friend constexpr bool operator==(WindowServerChanges, WindowServerChanges) = default;

private:
    std::uint64_t m_rawValue = 0;
};

inline constexpr WindowServerChanges WindowServerChanges::moved{1};
inline constexpr WindowServerChanges WindowServerChanges::resized{2};
inline constexpr WindowServerChanges WindowServerChanges::other{4};

} // namespace haloric
