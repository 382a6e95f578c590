#include <zoerrlog/trace/ZoClockTexts.h>

#include <cstdint>
#include <ctime>
#include <limits>

#include <zoerrlog/message/ZoDateText.h>
#include <zoerrlog/platform/Clock.h>

namespace zoerrlog::trace {
namespace {

using message::WriteDigits;

constexpr std::size_t kDateLength = 10;
constexpr std::size_t kTimeLength = 8;
constexpr int kMillisecondDigits = 3;

/// The texts of a thread's latest second, with what they depend on.
struct Second {
    std::int64_t second = std::numeric_limits<std::int64_t>::min();
    long zone = 0;
    bool localTime = false;
    char date[kDateLength] = {};
    char preciseTime[kTimeLength + 1 + kMillisecondDigits] = {};
};

// Not inline, or the address of the thread's variable would be asked for anew at every use.
__attribute__((noinline)) Second& SecondOfThread() noexcept {
    thread_local Second second;
    return second;
}

// Once a second: kept out of the way of every line.
__attribute__((noinline, cold)) void Build(Second& texts, const std::tm& time) noexcept {
    constexpr int kFirstYear = 1900;
    char* next = WriteDigits(time.tm_mon + 1, 2, texts.date);
    *next++ = '/';
    next = WriteDigits(time.tm_mday, 2, next);
    *next++ = '/';
    WriteDigits(time.tm_year + kFirstYear, 4, next);

    next = WriteDigits(time.tm_hour, 2, texts.preciseTime);
    *next++ = ':';
    next = WriteDigits(time.tm_min, 2, next);
    *next++ = ':';
    next = WriteDigits(time.tm_sec, 2, next);
    *next = '.';
}

}  // namespace

ClockTexts ReadClock(bool localTime) noexcept {
    Second& texts = SecondOfThread();
    const platform::WallTime now = platform::Now();
    const long zone = localTime ? platform::LocalTimeZone() : 0;
    if (texts.second != now.seconds || texts.localTime != localTime || texts.zone != zone) {
        Build(texts, platform::BreakDown(now.seconds, localTime));
        texts.second = now.seconds;
        texts.zone = zone;
        texts.localTime = localTime;
    }
    WriteDigits(now.Milliseconds(), kMillisecondDigits, texts.preciseTime + kTimeLength + 1);
    const std::string_view preciseTime(texts.preciseTime, sizeof(texts.preciseTime));
    return {{texts.date, kDateLength}, preciseTime.substr(0, kTimeLength), preciseTime};
}

}  // namespace zoerrlog::trace
