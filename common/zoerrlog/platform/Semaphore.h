#ifndef ZOERRLOG_PLATFORM_SEMAPHORE_H
#define ZOERRLOG_PLATFORM_SEMAPHORE_H

#include <cstdint>
#include <mutex>

#include <zoerrlog/platform/ForkAware.h>

namespace zoerrlog::platform {

/// A counting semaphore with a maximum count that serves waiting threads in order of arrival: a
/// released unit belongs to the first waiter from that moment on.
///
/// Nothing of the semaphore is touched by Release once the last thread it serves can run on, so
/// that thread may destroy it.
class Semaphore final : private ForkAware {
public:
    static constexpr std::uint32_t kNoTimeLimit = 0xFFFFFFFF;
    enum class WaitResult { kSignalled, kTimedOut };

    /// True for counts that a semaphore can have.
    static bool AcceptsCounts(long initialCount, long maximumCount) noexcept;

    Semaphore(long initialCount, long maximumCount) noexcept;
    ~Semaphore();

    WaitResult Wait(std::uint32_t milliseconds) noexcept;

    /// Adds `count` units, or does nothing when that is not 1 or more or would pass the maximum.
    void Release(long count) noexcept;

    /// Takes all units away and forgets all waiters: for a forked child that has none of them.
    void Empty() noexcept;

private:
    struct Waiter;

    void AfterForkInChild() noexcept override;
    void Enqueue(Waiter& waiter) noexcept;
    bool Dequeue(Waiter& waiter) noexcept;

    std::mutex m_mutex;
    long m_count;
    const long m_maximum;
    Waiter* m_first = nullptr;
    Waiter* m_last = nullptr;
};

}  // namespace zoerrlog::platform

#endif
