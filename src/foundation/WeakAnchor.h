// Weak references to an object that somebody else owns, for callbacks that must do nothing once it is gone.
//
// The object keeps a WeakAnchor as its last member and hands out `ref()`. References may be copied on any thread;
// `get()` is called only on the thread that destroys the object (the main thread, throughout Haloric).
#pragma once

#include <memory>

namespace haloric {

template <class T>
class WeakRef {
public:
    WeakRef() = default;

    // The object, or null when it has been destroyed.
    T* get() const { return m_target ? *m_target : nullptr; }

private:
    template <class U>
    friend class WeakAnchor;

    explicit WeakRef(std::shared_ptr<T*> target) : m_target(std::move(target)) {}

    std::shared_ptr<T*> m_target;
};

template <class T>
class WeakAnchor {
public:
    explicit WeakAnchor(T& owner) : m_target(std::make_shared<T*>(&owner)) {}
    ~WeakAnchor() { *m_target = nullptr; }

    WeakAnchor(const WeakAnchor&) = delete;
    WeakAnchor& operator=(const WeakAnchor&) = delete;

    WeakRef<T> ref() const { return WeakRef<T>(m_target); }

private:
    std::shared_ptr<T*> m_target;
};

} // namespace haloric
