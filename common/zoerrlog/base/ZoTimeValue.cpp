#include <zoerrlog/base/ZoTimeValue.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include <zoerrlog/platform/Clock.h>

namespace {

constexpr std::int32_t kMicrosecondsPerSecond = 1000000;
constexpr std::int32_t kMillisecondsPerSecond = 1000;
constexpr std::int32_t kMicrosecondsPerMillisecond = 1000;
constexpr std::int32_t kSecondsPerHour = 3600;
constexpr std::int32_t kSecondsPerMinute = 60;
constexpr std::int64_t kTicksPerSecond = 10000000;
constexpr std::int64_t kTicksPerMicrosecond = 10;
constexpr std::int64_t kNanosecondsPerTick = 100;
// From 1601 to 1970: 369 years, 89 of them leap years.
constexpr std::int64_t kSecondsBetweenEpochs = (369 * 365 + 89) * std::int64_t{86400};
constexpr std::int64_t kTicksBetweenEpochs = kSecondsBetweenEpochs * kTicksPerSecond;
static_assert(kTicksBetweenEpochs == 0x19DB1DED53E8000);

constexpr unsigned kHalfBits = 32;

using Limits = std::numeric_limits<std::int32_t>;

// Arithmetic that wraps, as that of 32-bit numbers does; on signed ones it would be undefined.
std::int32_t Wrapped(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

std::int32_t Sum(std::int32_t left, std::int32_t right) {
    return Wrapped(std::int64_t{left} + right);
}

std::int32_t Difference(std::int32_t left, std::int32_t right) {
    return Wrapped(std::int64_t{left} - right);
}

CTimeValue NoSplit() {
    CTimeValue value;
    value.SetSec(-1);
    value.SetUsec(-1);
    return value;
}

}  // namespace

const CTimeValue CTimeValue::maxTime(Limits::max(), kMicrosecondsPerSecond - 1);

CTimeValue::CTimeValue(long sec, long usec) noexcept : CTimeValue() {
    Set(sec, usec);
}

CTimeValue::CTimeValue(const timeval32& value) noexcept : CTimeValue() {
    Set(value);
}

CTimeValue::CTimeValue(const FILETIME& fileTime) noexcept : CTimeValue() {
    Set(fileTime);
}

void CTimeValue::Set(long sec, long usec) noexcept {
    m_sec = Wrapped(sec);
    m_usec = Wrapped(usec);
    Normalize();
}

void CTimeValue::Set(const timeval32& value) noexcept {
    Set(value.tv_sec, value.tv_usec);
}

void CTimeValue::Set(const FILETIME& fileTime) noexcept {
    const std::uint64_t ticks =
        (std::uint64_t{fileTime.dwHighDateTime} << kHalfBits | fileTime.dwLowDateTime) -
        static_cast<std::uint64_t>(kTicksBetweenEpochs);
    m_sec = Wrapped(static_cast<std::int64_t>(ticks / kTicksPerSecond));
    m_usec = static_cast<std::int32_t>(ticks % kTicksPerSecond / kTicksPerMicrosecond);
}

void CTimeValue::Set(double seconds) {
    if (std::isnan(seconds)) {
        Reset();
        return;
    }
    const double whole =
        std::clamp(std::trunc(seconds), double{Limits::min()}, double{Limits::max()});
    const double fraction = std::clamp((seconds - whole) * kMicrosecondsPerSecond,
                                       1.0 - kMicrosecondsPerSecond, kMicrosecondsPerSecond - 1.0);
    m_sec = static_cast<std::int32_t>(whole);
    m_usec = static_cast<std::int32_t>(fraction);
    Normalize();
}

void CTimeValue::Normalize() noexcept {
    m_sec = Sum(m_sec, m_usec / kMicrosecondsPerSecond);
    m_usec %= kMicrosecondsPerSecond;
    if (m_sec >= 1 && m_usec < 0) {
        m_sec -= 1;
        m_usec += kMicrosecondsPerSecond;
    } else if (m_sec < 0 && m_usec > 0) {
        m_sec += 1;
        m_usec -= kMicrosecondsPerSecond;
    }
}

long long CTimeValue::ConvertToEpochTime(const char* fileTimeText) {
    constexpr int kDecimal = 10;
    const long long ticks =
        fileTimeText != nullptr ? std::strtoll(fileTimeText, nullptr, kDecimal) : 0;
    return std::clamp<long long>(ticks / kTicksPerSecond - kSecondsBetweenEpochs, Limits::min(),
                                 Limits::max());
}

long long CTimeValue::GetCurrentFileTime() {
    const zoerrlog::platform::WallTime now = zoerrlog::platform::Now();
    return (now.seconds + kSecondsBetweenEpochs) * kTicksPerSecond +
           now.nanoseconds / kNanosecondsPerTick;
}

CTimeValue CTimeValue::GetTickCount() {
    const auto ticks = static_cast<std::uint64_t>(GetCurrentFileTime());
    return FILETIME{static_cast<std::uint32_t>(ticks),
                    static_cast<std::uint32_t>(ticks >> kHalfBits)};
}

long CTimeValue::GetMSec() const {
    return Wrapped(std::int64_t{m_sec} * kMillisecondsPerSecond +
                   m_usec / kMicrosecondsPerMillisecond);
}

void CTimeValue::SetMSsec(long ms) {
    const std::int32_t milliseconds = Wrapped(ms);
    m_sec = milliseconds / kMillisecondsPerSecond;
    m_usec = milliseconds % kMillisecondsPerSecond * kMicrosecondsPerMillisecond;
}

CTimeValue::operator timeval32() {
    return {m_sec, m_usec};
}

CTimeValue::operator const timeval32*() const {
    static_assert(sizeof(CTimeValue) == sizeof(timeval32));
    return reinterpret_cast<const timeval32*>(this);
}

CTimeValue::operator FILETIME() {
    const auto ticks = static_cast<std::uint64_t>(
        (m_sec + kSecondsBetweenEpochs) * kTicksPerSecond + m_usec * kTicksPerMicrosecond);
    return {static_cast<std::uint32_t>(ticks), static_cast<std::uint32_t>(ticks >> kHalfBits)};
}

void CTimeValue::SetSec(long sec) {
    m_sec = Wrapped(sec);
}

void CTimeValue::SetUsec(long usec) {
    m_usec = Wrapped(usec);
}

long CTimeValue::GetHours() const {
    return m_sec / kSecondsPerHour;
}

long CTimeValue::GetMinutes() const {
    return m_sec / kSecondsPerMinute;
}

long CTimeValue::GetMinutesLeft() const {
    return m_sec % kSecondsPerHour / kSecondsPerMinute;
}

long CTimeValue::GetSecondsLeft() const {
    return m_sec % kSecondsPerMinute;
}

void CTimeValue::GetFormattedTimeValue(char* text) {
    constexpr std::size_t kRoom = 22;
    // What does not fit is cut.
    if (std::snprintf(text, kRoom, "%02ld:%02ld:%02ld.%06d", GetHours(), GetMinutesLeft(),
                      GetSecondsLeft(), m_usec) < 0) {
        text[0] = '\0';
    }
}

bool CTimeValue::IsZeroTime() {
    return m_sec == 0 && m_usec == 0;
}

void CTimeValue::Reset() {
    m_sec = 0;
    m_usec = 0;
}

void CTimeValue::operator+=(const CTimeValue& other) {
    Set(Sum(m_sec, other.m_sec), Sum(m_usec, other.m_usec));
}

void CTimeValue::operator-=(const CTimeValue& other) {
    Set(Difference(m_sec, other.m_sec), Difference(m_usec, other.m_usec));
}

int operator<(const CTimeValue& left, const CTimeValue& right) {
    return left.GetSec() != right.GetSec() ? left.GetSec() < right.GetSec()
                                           : left.GetUsec() < right.GetUsec();
}

int operator>(const CTimeValue& left, const CTimeValue& right) {
    return right < left;
}

int operator<=(const CTimeValue& left, const CTimeValue& right) {
    return (right < left) == 0;
}

int operator>=(const CTimeValue& left, const CTimeValue& right) {
    return (left < right) == 0;
}

int operator==(const CTimeValue& left, const CTimeValue& right) {
    return left.GetSec() == right.GetSec() && left.GetUsec() == right.GetUsec();
}

int operator!=(const CTimeValue& left, const CTimeValue& right) {
    return (left == right) == 0;
}

CStopwatch::CStopwatch() = default;

CStopwatch::~CStopwatch() = default;

void CStopwatch::Reset() {
    m_start.Reset();
    m_splits.clear();
}

void CStopwatch::Start() {
    Reset();
    m_start = CTimeValue::GetTickCount();
}

void CStopwatch::Split() {
    m_splits.push_back(CTimeValue::GetTickCount());
}

long CStopwatch::GetLastIndex() {
    return static_cast<long>(m_splits.size()) - 1;
}

CTimeValue CStopwatch::GetSplit(unsigned long long index) {
    if (index >= m_splits.size()) {
        return NoSplit();
    }
    CTimeValue sinceStart = m_splits[index];
    sinceStart -= m_start;
    return sinceStart;
}

CTimeValue CStopwatch::GetLastSplit() {
    return m_splits.empty() ? NoSplit() : GetSplit(m_splits.size() - 1);
}
