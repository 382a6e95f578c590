#ifndef ZOERRLOG_PLATFORM_CLOCK_H
#define ZOERRLOG_PLATFORM_CLOCK_H

#include <cstdint>
#include <ctime>

namespace zoerrlog::platform {

/// An instant of the wall clock, counted from 1970-01-01 00:00:00 UTC.
struct WallTime {
    std::int64_t seconds;
    std::int32_t nanoseconds;

    int Milliseconds() const noexcept { return nanoseconds / 1000000; }
};

/// The current instant.
WallTime Now() noexcept;

/// The current second, by the clock that the kernel keeps anyhow: at a fifth of the price of Now(),
/// and behind it by at most a tick of the kernel, which is 10 milliseconds or less.
std::int64_t CurrentSecond() noexcept;

/// Replaces the source of both, for tests; null brings the system's clock back.
using ClockSource = WallTime (*)();
void SetClockSource(ClockSource source) noexcept;

/// `seconds` broken down in local time or in UTC. Remembered by each thread for the second that it
/// asked for last, so that only the first line of a second pays for the conversion.
const std::tm& BreakDown(std::int64_t seconds, bool localTime) noexcept;

/// The offset of the C library's time zone, which changes when the host chooses another zone.
long LocalTimeZone() noexcept;

/// Held across a fork, so that the child does not find the conversion's locks taken by a thread
/// that it does not have.
void LockLocalTime() noexcept;
void UnlockLocalTime() noexcept;

/// Gives the processor away for about `milliseconds`.
void SleepFor(int milliseconds) noexcept;

}  // namespace zoerrlog::platform

#endif
