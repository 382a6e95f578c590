#include <zoerrlog/platform/CriticalSection.h>

#include <zoerrlog/platform/Futex.h>
#include <zoerrlog/platform/KeepErrno.h>
#include <zoerrlog/platform/Process.h>

namespace zoerrlog::platform {
namespace {

enum State : std::uint32_t { kFree = 0, kHeld = 1, kHeldAndWaitedFor = 2 };

// A line holds the lock for two short system calls, little more than a microsecond; to sleep and be
// woken takes several. So a thread looks again for about as long as that (some 8 microseconds on
// current processors) before it sleeps: error_line_limited in bench/ with several threads.
constexpr int kLooksBeforeSleep = 600;

void PauseBetweenLooks() noexcept {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#elif defined(__aarch64__)
    asm volatile("yield");
#endif
}

bool Take(std::atomic<std::uint32_t>& state) noexcept {
    std::uint32_t expected = kFree;
    return state.compare_exchange_strong(expected, kHeld, std::memory_order_acquire,
                                         std::memory_order_relaxed);
}

}  // namespace

CriticalSection::CriticalSection() noexcept = default;

CriticalSection::~CriticalSection() = default;

void CriticalSection::Enter() noexcept {
    const void* const self = ThreadIdentity();
    if (m_owner.load(std::memory_order_relaxed) == self) {
        ++m_depth;
        return;
    }
    if (!Take(m_state)) {
        EnterContended();
    }
    m_owner.store(self, std::memory_order_relaxed);
    m_depth = 1;
}

void CriticalSection::EnterContended() noexcept {
    for (int look = 0; look < kLooksBeforeSleep; ++look) {
        PauseBetweenLooks();
        if (m_state.load(std::memory_order_relaxed) == kFree && Take(m_state)) {
            return;
        }
    }
    // Whoever slept cannot know that nobody else does, and wakes the next one to be sure.
    const KeepErrno keep;
    while (m_state.exchange(kHeldAndWaitedFor, std::memory_order_acquire) != kFree) {
        SleepWhile(m_state, kHeldAndWaitedFor, nullptr);
    }
}

void CriticalSection::Leave() noexcept {
    if (--m_depth == 0) {
        m_owner.store(nullptr, std::memory_order_relaxed);
        if (m_state.exchange(kFree, std::memory_order_release) == kHeldAndWaitedFor) {
            const KeepErrno keep;
            WakeOne(&m_state);
        }
    }
}

void CriticalSection::AfterForkInChild() noexcept {
    // Those who waited are not in the child.
    const bool own = m_owner.load(std::memory_order_relaxed) == ThreadIdentity();
    m_state.store(own ? kHeld : kFree, std::memory_order_relaxed);
    if (!own) {
        m_owner.store(nullptr, std::memory_order_relaxed);
        m_depth = 0;
    }
}

}  // namespace zoerrlog::platform
