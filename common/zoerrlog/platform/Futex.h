#ifndef ZOERRLOG_PLATFORM_FUTEX_H
#define ZOERRLOG_PLATFORM_FUTEX_H

#include <atomic>
#include <cstdint>
#include <ctime>

namespace zoerrlog::platform {

/// A word on which threads of the process sleep.
using FutexWord = std::atomic<std::uint32_t>;

/// Sleeps while `word` is `value`, until somebody wakes it, or for no reason at all; false once the
/// deadline (on the monotonic clock, null for none) has passed. May change errno.
bool SleepWhile(FutexWord& word, std::uint32_t value, const struct timespec* deadline) noexcept;

/// Wakes a thread that sleeps on the word, of which the address alone is looked at. May change
/// errno.
void WakeOne(FutexWord* word) noexcept;

}  // namespace zoerrlog::platform

#endif
