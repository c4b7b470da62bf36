// Leads a C function without a context argument to the one object that it serves, on any thread, also while that
// object is destroyed.
//
// The object keeps a LiveInstance as its last member. Destroying it makes later calls find no object, and waits for
// calls that have already found it. No lock is held during a call.
#pragma once

#include <condition_variable>
#include <mutex>
#include <utility>

namespace haloric {

template <class T>
class LiveInstance {
public:
    explicit LiveInstance(T& object)
    {
        const std::lock_guard guard(s_lock);
        s_object = &object;
    }

    ~LiveInstance()
    {
        std::unique_lock guard(s_lock);
        s_object = nullptr;
        s_idle.wait(guard, [] { return s_callsUnderWay == 0; });
    }

    LiveInstance(const LiveInstance&) = delete;
    LiveInstance& operator=(const LiveInstance&) = delete;

    // Calls `work` with the live object, if there is one. Any thread. `work` must neither throw nor destroy the object.
    template <class Work>
    static void use(Work work)
    {
        T* object = nullptr;
        {
            const std::lock_guard guard(s_lock);
            if (!s_object)
                return;
            object = s_object;
            ++s_callsUnderWay;
        }
        work(*object);
        const std::lock_guard guard(s_lock);
        if (--s_callsUnderWay == 0)
            s_idle.notify_all();
    }

private:
    static inline std::mutex s_lock;
    static inline std::condition_variable s_idle;
    static inline T* s_object = nullptr;
    static inline int s_callsUnderWay = 0;
};

} // namespace haloric
