#include <zoerrlog/platform/Clock.h>

#include <pthread.h>
#include <time.h>

#include <atomic>
#include <limits>

namespace zoerrlog::platform {
namespace {

std::atomic<ClockSource> g_source{nullptr};

// Statically initialised and never destroyed: usable before constructors and during exit.
pthread_mutex_t g_localTimeMutex = PTHREAD_MUTEX_INITIALIZER;

struct BrokenDownSecond {
    std::int64_t second = std::numeric_limits<std::int64_t>::min();
    long zone = 0;
    std::tm fields = {};
};

thread_local BrokenDownSecond t_local;
thread_local BrokenDownSecond t_utc;

void Convert(std::int64_t seconds, bool localTime, std::tm& fields) {
    const std::time_t instant = seconds;
    if (localTime) {
        LockLocalTime();
        localtime_r(&instant, &fields);
        UnlockLocalTime();
    } else {
        gmtime_r(&instant, &fields);
    }
}

WallTime ReadClock(clockid_t clock) noexcept {
    if (const ClockSource source = g_source.load(std::memory_order_relaxed); source != nullptr) {
        return source();
    }
    struct timespec now = {};
    clock_gettime(clock, &now);
    return {now.tv_sec, static_cast<std::int32_t>(now.tv_nsec)};
}

}  // namespace

WallTime Now() noexcept {
    return ReadClock(CLOCK_REALTIME);
}

std::int64_t CurrentSecond() noexcept {
    return ReadClock(CLOCK_REALTIME_COARSE).seconds;
}

void SetClockSource(ClockSource source) noexcept {
    g_source.store(source);
}

const std::tm& BreakDown(std::int64_t seconds, bool localTime) noexcept {
    BrokenDownSecond& known = localTime ? t_local : t_utc;
    const long zone = LocalTimeZone();
    if (known.second != seconds || known.zone != zone) {
        Convert(seconds, localTime, known.fields);
        known.second = seconds;
        known.zone = zone;
    }
    return known.fields;
}

long LocalTimeZone() noexcept {
    return timezone;
}

void LockLocalTime() noexcept {
    pthread_mutex_lock(&g_localTimeMutex);
}

void UnlockLocalTime() noexcept {
    pthread_mutex_unlock(&g_localTimeMutex);
}

void SleepFor(int milliseconds) noexcept {
    struct timespec pause = {milliseconds / 1000, milliseconds % 1000 * 1000000L};
    nanosleep(&pause, nullptr);
}

}  // namespace zoerrlog::platform
