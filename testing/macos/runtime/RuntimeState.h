// What the sources of the Objective-C runtime share: the data of a class, the
// header of an instance, and the lock of both. Any thread.
#pragma once

#include "runtime/ObjectiveCAbi.h"

#include <atomic>
#include <unordered_map>

#include <pthread.h>

#ifdef HALORIC_THREAD_SANITIZER // counting references orders what is done
                                // before the last release
extern "C" void __tsan_acquire(void*);
extern "C" void __tsan_release(void*);
#define RT_TSAN_ACQUIRE(x) __tsan_acquire(x)
#define RT_TSAN_RELEASE(x) __tsan_release(x)
#else
#define RT_TSAN_ACQUIRE(x)
#define RT_TSAN_RELEASE(x)
#endif

namespace substitute::runtime {

enum class Kind : std::uint8_t { normal, constant, stackBlock, mallocBlock, globalBlock };

struct ClassData {
    std::unordered_map<rt_SEL, rt_IMP> methods;
    std::unordered_map<rt_SEL, rt_IMP> found; // of the superclasses too
    std::size_t size = 0;
    Kind kind = Kind::normal;
    bool meta = false;
    std::atomic<long> live{0};
    rt_IMP construct = nullptr;
    rt_IMP destruct = nullptr;
};

// In front of each instance.
struct Header {
    std::atomic<std::int64_t> references;
    std::uint32_t magic;
    std::atomic<std::uint16_t> weak; // whether weak references to it were made
    std::uint16_t counted;           // whether it is one of the live ones
};
static_assert(sizeof(Header) == 16);

constexpr std::uint32_t kMagic = 0x0b1ec7ed;

inline Header& headerOf(rt_id object) { return reinterpret_cast<Header*>(object)[-1]; }
inline ClassData& dataOf(objc_class_t* cls) { return *static_cast<ClassData*>(cls->cache); }
inline Kind kindOf(rt_id object) { return dataOf(object->isa).kind; }

// Recursive. The runtime's sources are compiled without ThreadSanitizer: a lock
// that it saw would order the program's threads at each message.
class HiddenLock {
public:
    void lock();
    void unlock();

private:
    std::atomic<bool> m_owned{false};
    pthread_t m_owner{};
    int m_depth = 0;
};
HiddenLock& lock();

bool countsObjects(); // on this thread

// Sets the weak references to the object to nil. `lock()` is not held.
void clearWeakReferences(rt_id object);

} // namespace substitute::runtime

extern "C" {
rt_id objc_retain(rt_id object);
void objc_release(rt_id object);
rt_id objc_autorelease(rt_id object);
void* _Block_copy(const void* block);
void _Block_release(const void* block);
}
