// Weak references to an object with another owner, for callbacks that must do nothing once the object is gone.
//
// The object keeps a WeakAnchor as its last member and hands out `bind()` or `ref()`. References and callbacks may be
// copied on any thread; they are used only on the thread that destroys the object (the main thread, throughout
// Haloric).
#pragma once

#include <functional>
#include <memory>
#include <utility>

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

    // A callback that calls `action` with the object, `bound` and its own arguments; it does nothing, and returns
    // nothing, once the object is gone. `action` is a member function, or a callable that takes a T& first. The bound
    // values are copied into the callback and are valid as long as it is.
    template <class Action, class... Bound>
    auto bind(Action action, Bound... bound) const
    {
        return [ref = ref(), action = std::move(action),
                ... bound = std::move(bound)]<class... Arguments>(Arguments&&... arguments) {
            if (T* target = ref.get())
                std::invoke(action, *target, bound..., std::forward<Arguments>(arguments)...);
        };
    }

private:
    std::shared_ptr<T*> m_target;
};

} // namespace haloric
