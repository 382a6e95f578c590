#ifndef ZOERRLOG_BASE_ZOTIMEVALUE_H
#define ZOERRLOG_BASE_ZOTIMEVALUE_H

#include <cstdint>
#include <vector>

#include <zoerrlog/base/ZoExport.h>

/// Seconds and microseconds in 32 bits each.
struct timeval32 {
    std::int32_t tv_sec;
    std::int32_t tv_usec;
};

/// 100-nanosecond ticks since 1601-01-01 00:00:00 UTC, as an unsigned 64-bit number in two halves.
struct FILETIME {
    std::uint32_t dwLowDateTime;
    std::uint32_t dwHighDateTime;
};

/// A span of time, or an instant counted from 1970-01-01 00:00:00 UTC: signed 32-bit seconds and
/// microseconds, laid out as a timeval32. All arithmetic is that of 32-bit numbers and wraps.
///
/// A value is normalised when its microseconds lie within -999999 to 999999 and have the sign of
/// its seconds, if those are not 0. The operations that say so normalise. Parameters of type long
/// are taken as their low 32 bits. An object is used by one thread at a time.
class ZOERRLOG_EXPORT CTimeValue {
public:
    /// The largest value: 2147483647 seconds and 999999 microseconds.
    static const CTimeValue maxTime;

    CTimeValue() noexcept : m_sec(0), m_usec(0) {}
    /// Normalises.
    CTimeValue(long sec, long usec) noexcept;
    /// Normalises.
    CTimeValue(const timeval32& value) noexcept;
    /// An instant from 1970 on; earlier ones give a meaningless value. Fractions of a microsecond
    /// are dropped.
    CTimeValue(const FILETIME& fileTime) noexcept;
    CTimeValue(const CTimeValue&) = default;
    CTimeValue& operator=(const CTimeValue&) = default;

    // As the constructors.
    void Set(long sec, long usec) noexcept;
    void Set(const timeval32& value) noexcept;
    void Set(const FILETIME& fileTime) noexcept;
    /// Seconds with a fraction, cut to microseconds; values beyond 32-bit seconds become the
    /// nearest that there is, and what is no number becomes 0. Normalises.
    void Set(double seconds);

    /// The seconds since 1970 of a FILETIME tick count given as signed decimal text, limited to
    /// 32 bits. Leading blanks and a sign are accepted, reading stops at the first other character;
    /// null and texts without digits count as 0 ticks, numbers beyond 64 bits as the nearest.
    static long long ConvertToEpochTime(const char* fileTimeText);
    /// The current time as a FILETIME tick count.
    static long long GetCurrentFileTime();
    /// The current time of the wall clock; no count of ticks.
    static CTimeValue GetTickCount();

    /// Milliseconds, cut; wraps beyond 32 bits, that is from 2147484 seconds on.
    long GetMSec() const;
    void SetMSsec(long ms);

    operator timeval32();
    /// The object itself.
    operator const timeval32*() const;
    operator FILETIME();

    long GetSec() const { return m_sec; }
    long GetUsec() const { return m_usec; }
    // Neither of these normalises.
    void SetSec(long sec);
    void SetUsec(long usec);

    // Parts, cut towards zero; those of a negative value are negative or zero.
    long GetHours() const;        ///< whole hours, not limited to 24
    long GetMinutes() const;      ///< whole minutes
    long GetMinutesLeft() const;  ///< minutes within the hour
    long GetSecondsLeft() const;  ///< seconds within the minute

    /// Writes "hh:mm:ss.uuuuuu" into `text`, which has room for 22 bytes; a longer text is cut to
    /// 21 bytes and its terminator.
    void GetFormattedTimeValue(char* text);

    bool IsZeroTime();
    void Reset();

    // Both normalise.
    void operator+=(const CTimeValue& other);
    void operator-=(const CTimeValue& other);

private:
    void Normalize() noexcept;

    std::int32_t m_sec;
    std::int32_t m_usec;
};

// 1 or 0. Both values must be normalised.
ZOERRLOG_EXPORT int operator<(const CTimeValue& left, const CTimeValue& right);
ZOERRLOG_EXPORT int operator>(const CTimeValue& left, const CTimeValue& right);
ZOERRLOG_EXPORT int operator<=(const CTimeValue& left, const CTimeValue& right);
ZOERRLOG_EXPORT int operator>=(const CTimeValue& left, const CTimeValue& right);
ZOERRLOG_EXPORT int operator==(const CTimeValue& left, const CTimeValue& right);
ZOERRLOG_EXPORT int operator!=(const CTimeValue& left, const CTimeValue& right);

/// Records a start and any number of splits by the wall clock. An object is used by one thread at
/// a time.
class ZOERRLOG_EXPORT CStopwatch {
public:
    CStopwatch();
    ~CStopwatch();
    CStopwatch(const CStopwatch&) = delete;
    CStopwatch& operator=(const CStopwatch&) = delete;

    /// Forgets the start and the splits.
    void Reset();
    /// Reset, then starts now.
    void Start();
    /// Records a split now. May throw std::bad_alloc.
    void Split();
    /// The index of the last split; -1 without one.
    long GetLastIndex();
    /// The time from the start to split `index`, counted from 0; -1 second and -1 microsecond when
    /// there is none.
    CTimeValue GetSplit(unsigned long long index);
    /// The same for the last split.
    CTimeValue GetLastSplit();

private:
    CTimeValue m_start;
    std::vector<CTimeValue> m_splits;
};

#endif
