#include <zoerrlog/platform/ForkAware.h>

#include <pthread.h>

#include <atomic>
#include <mutex>
#include <type_traits>

#include <zoerrlog/platform/Clock.h>

namespace zoerrlog::platform {
namespace {

std::atomic<std::uint32_t> g_generation{1};

// Usable before the first constructor and during exit, when threads may still make locks.
constinit std::mutex g_registryMutex;
static_assert(std::is_trivially_destructible_v<std::mutex>);

}  // namespace

std::uint32_t ForkGeneration() noexcept {
    return g_generation.load(std::memory_order_relaxed);
}

/// The list of all ForkAware objects. Its lock is held across every fork, so the child finds the
/// list whole; it is never held while anything else is waited for.
class ForkRegistry {
public:
    static void Add(ForkAware& object) noexcept {
        const std::lock_guard hold(g_registryMutex);
        object.m_previous = nullptr;
        object.m_next = s_first;
        if (s_first != nullptr) {
            s_first->m_previous = &object;
        }
        s_first = &object;
    }

    static void Remove(ForkAware& object) noexcept {
        const std::lock_guard hold(g_registryMutex);
        (object.m_previous != nullptr ? object.m_previous->m_next : s_first) = object.m_next;
        if (object.m_next != nullptr) {
            object.m_next->m_previous = object.m_previous;
        }
    }

    static void BeforeFork() noexcept {
        g_registryMutex.lock();
        LockLocalTime();
    }

    static void AfterForkInParent() noexcept {
        UnlockLocalTime();
        g_registryMutex.unlock();
    }

    static void AfterForkInChild() noexcept {
        g_generation.fetch_add(1, std::memory_order_relaxed);
        UnlockLocalTime();
        for (ForkAware* object = s_first; object != nullptr; object = object->m_next) {
            object->AfterForkInChild();
        }
        g_registryMutex.unlock();
    }

private:
    static ForkAware* s_first;
};

ForkAware* ForkRegistry::s_first = nullptr;

ForkAware::ForkAware() noexcept : m_previous(nullptr), m_next(nullptr) {
    ForkRegistry::Add(*this);
}

ForkAware::~ForkAware() {
    ForkRegistry::Remove(*this);
}

namespace {

// The handlers are tied to this library: unloading it removes them.
__attribute__((constructor)) void RegisterForkHandlers() {
    pthread_atfork(&ForkRegistry::BeforeFork, &ForkRegistry::AfterForkInParent,
                   &ForkRegistry::AfterForkInChild);
}

}  // namespace
}  // namespace zoerrlog::platform
