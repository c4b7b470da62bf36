// Owns one reference to a Core Foundation object and releases it. Automatic reference counting covers Objective-C
// objects only; every Core Foundation object that an adapter creates or copies is kept in one of these.
#pragma once

#import <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace haloric {

template <class Reference>
class CFOwned {
public:
    CFOwned() = default;

    // Takes over what a function named "Create" or "Copy" returned; may be null.
    explicit CFOwned(Reference owned) : m_reference(owned) {}

    // Retains a borrowed reference, as a function named "Get" returns it; may be null.
    static CFOwned retaining(Reference borrowed)
    {
        if (borrowed)
            CFRetain(borrowed);
        return CFOwned(borrowed);
    }

    CFOwned(CFOwned&& other) noexcept : m_reference(std::exchange(other.m_reference, nullptr)) {}

    CFOwned& operator=(CFOwned&& other) noexcept
    {
        std::swap(m_reference, other.m_reference);
        return *this;
    }

    CFOwned(const CFOwned&) = delete;
    CFOwned& operator=(const CFOwned&) = delete;

    ~CFOwned()
    {
        if (m_reference)
            CFRelease(m_reference);
    }

    // Hands the reference over to the caller, which releases it.
    Reference take() { return std::exchange(m_reference, nullptr); }

    Reference get() const { return m_reference; }
    explicit operator bool() const { return m_reference != nullptr; }

    // Where a function stores a reference that the caller owns. Only while this is null.
    Reference* receiver() { return &m_reference; }

private:
    Reference m_reference = nullptr;
};

} // namespace haloric
