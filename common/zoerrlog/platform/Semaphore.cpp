#include <zoerrlog/platform/Semaphore.h>

#include <time.h>

#include <atomic>
#include <new>

#include <zoerrlog/platform/Futex.h>
#include <zoerrlog/platform/KeepErrno.h>

namespace zoerrlog::platform {

/// One waiting thread; lives on its stack and sleeps on a word of its own.
struct Semaphore::Waiter {
    std::atomic<std::uint32_t> granted{0};
    Waiter* previous = nullptr;
    Waiter* next = nullptr;
};

namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1000000000;
constexpr std::int64_t kNanosecondsPerMillisecond = 1000000;

struct timespec DeadlineAfter(std::uint32_t milliseconds) {
    struct timespec deadline = {};
    clock_gettime(CLOCK_MONOTONIC, &deadline);
    const std::int64_t nanoseconds =
        deadline.tv_nsec + static_cast<std::int64_t>(milliseconds) * kNanosecondsPerMillisecond;
    deadline.tv_sec += nanoseconds / kNanosecondsPerSecond;
    deadline.tv_nsec = nanoseconds % kNanosecondsPerSecond;
    return deadline;
}

// The woken thread may leave the waiter's frame as soon as the word is set: a wake-up that comes
// after that reaches nobody, or a sleeper that looks at its own word again.
void Grant(std::atomic<std::uint32_t>& word) {
    std::atomic<std::uint32_t>* const address = &word;
    word.store(1, std::memory_order_release);
    WakeOne(address);
}

bool IsGranted(const std::atomic<std::uint32_t>& word) {
    return word.load(std::memory_order_acquire) != 0;
}

}  // namespace

bool Semaphore::AcceptsCounts(long initialCount, long maximumCount) noexcept {
    return initialCount >= 0 && maximumCount >= 1 && initialCount <= maximumCount;
}

Semaphore::Semaphore(long initialCount, long maximumCount) noexcept
    : m_count(initialCount), m_maximum(maximumCount) {
}

Semaphore::~Semaphore() = default;

Semaphore::WaitResult Semaphore::Wait(std::uint32_t milliseconds) noexcept {
    Waiter self;
    {
        const std::lock_guard hold(m_mutex);
        if (m_count > 0) {
            --m_count;
            return WaitResult::kSignalled;
        }
        if (milliseconds == 0) {
            return WaitResult::kTimedOut;
        }
        Enqueue(self);
    }
    const KeepErrno keepErrno;
    const bool limited = milliseconds != kNoTimeLimit;
    const struct timespec deadline = limited ? DeadlineAfter(milliseconds) : timespec{};
    while (!IsGranted(self.granted)) {
        if (SleepWhile(self.granted, 0, limited ? &deadline : nullptr)) {
            continue;
        }
        const std::lock_guard hold(m_mutex);
        if (Dequeue(self)) {
            return WaitResult::kTimedOut;
        }
        break;  // a release has already chosen this thread
    }
    while (!IsGranted(self.granted)) {
        SleepWhile(self.granted, 0, nullptr);
    }
    return WaitResult::kSignalled;
}

void Semaphore::Release(long count) noexcept {
    const KeepErrno keepErrno;
    Waiter* served = nullptr;
    {
        const std::lock_guard hold(m_mutex);
        if (count <= 0 || count > m_maximum - m_count) {
            return;
        }
        served = m_first;
        Waiter* lastServed = nullptr;
        while (count > 0 && m_first != nullptr) {
            lastServed = m_first;
            m_first = m_first->next;
            lastServed->previous = lastServed;  // marks it as no longer queued
            --count;
        }
        if (lastServed == nullptr) {
            served = nullptr;
        } else {
            lastServed->next = nullptr;
        }
        if (m_first == nullptr) {
            m_last = nullptr;
        } else {
            m_first->previous = nullptr;
        }
        m_count += count;
    }
    while (served != nullptr) {
        Waiter* const next = served->next;
        Grant(served->granted);
        served = next;
    }
}

void Semaphore::Enqueue(Waiter& waiter) noexcept {
    waiter.previous = m_last;
    (m_last != nullptr ? m_last->next : m_first) = &waiter;
    m_last = &waiter;
}

bool Semaphore::Dequeue(Waiter& waiter) noexcept {
    if (waiter.previous == &waiter) {
        return false;
    }
    (waiter.previous != nullptr ? waiter.previous->next : m_first) = waiter.next;
    (waiter.next != nullptr ? waiter.next->previous : m_last) = waiter.previous;
    return true;
}

void Semaphore::Empty() noexcept {
    AfterForkInChild();
    m_count = 0;
}

void Semaphore::AfterForkInChild() noexcept {
    // The threads that waited, and any that was inside the mutex, are not in the child.
    ::new (&m_mutex) std::mutex;
    m_first = nullptr;
    m_last = nullptr;
}

}  // namespace zoerrlog::platform
