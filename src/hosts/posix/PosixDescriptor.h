// Owns a file descriptor. Any thread, one at a time.
#pragma once

#include <utility>

#include <unistd.h>

namespace haloric {

class PosixDescriptor {
public:
    PosixDescriptor() = default;

    // Takes `number` over; a negative one is none.
    explicit PosixDescriptor(int number) : m_number(number) {}
    ~PosixDescriptor() { closeNow(); }
    PosixDescriptor(PosixDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    PosixDescriptor& operator=(PosixDescriptor&& other) noexcept
    {
        if (this != &other) {
            closeNow();
            m_number = std::exchange(other.m_number, -1);
        }
        return *this;
    }

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }

    // False when closing tells of an error, as some file systems do only then.
    bool closeNow() { return m_number < 0 || close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number = -1;
};

} // namespace haloric
