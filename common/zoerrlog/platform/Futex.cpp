#include <zoerrlog/platform/Futex.h>

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace zoerrlog::platform {

bool SleepWhile(FutexWord& word, std::uint32_t value, const struct timespec* deadline) noexcept {
    static_assert(sizeof(word) == sizeof(std::uint32_t));
    const long result = syscall(SYS_futex, &word, FUTEX_WAIT_BITSET_PRIVATE, value, deadline,
                                nullptr, FUTEX_BITSET_MATCH_ANY);
    return result == 0 || errno != ETIMEDOUT;
}

void WakeOne(FutexWord* word) noexcept {
    syscall(SYS_futex, word, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
}

}  // namespace zoerrlog::platform
