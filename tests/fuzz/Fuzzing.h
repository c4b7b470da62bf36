// What the fuzz targets share. A target defines LLVMFuzzerTestOneInput, returns 0, and aborts when the code under test
// breaks its contract.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace haloric {

// Aborts with the message unless `condition` holds.
inline void fuzzRequire(bool condition, const char* contract)
{
    if (condition)
        return;
    std::fprintf(stderr, "broken contract: %s\n", contract);
    std::abort();
}

inline std::string_view fuzzText(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

// Takes values from the bytes of an input, front to back. Every input gives values: after its end they are zero.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : m_rest(fuzzText(data, size)) {}

    bool isEmpty() const { return m_rest.empty(); }
    std::string_view rest() const { return m_rest; }

    template <class Number>
    Number number()
    {
        Number value{};
        const std::size_t size = std::min(m_rest.size(), sizeof value);
        if (size > 0)
            std::memcpy(&value, m_rest.data(), size);
        m_rest.remove_prefix(size);
        return value;
    }

    std::uint8_t byte() { return number<std::uint8_t>(); }
    bool flag() { return (byte() & 1U) != 0; }
    std::size_t below(std::size_t limit) { return byte() % limit; } // limit: 1 to 256

    // A length of one byte, then so many bytes.
    std::string_view text()
    {
        const std::size_t wanted = byte();
        const std::size_t size = std::min(wanted, m_rest.size());
        const std::string_view taken = m_rest.substr(0, size);
        m_rest.remove_prefix(size);
        return taken;
    }

private:
    std::string_view m_rest;
};

} // namespace haloric

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
