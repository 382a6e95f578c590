#include <zoerrlog/message/ZoProlog.h>

#include <charconv>
#include <cstdint>
#include <limits>

#include <zoerrlog/message/ZoDateText.h>
#include <zoerrlog/platform/Clock.h>
#include <zoerrlog/platform/ForkAware.h>
#include <zoerrlog/platform/Process.h>

namespace zoerrlog::message {
namespace {

constexpr std::size_t kNumberLength = 11;  // of any 32-bit number with its sign
constexpr std::size_t kPunctuation = 6;    // "[", "/", "][" and "]["
constexpr std::size_t kStartSize = 2 * kNumberLength + kPunctuation + kLongDateLength;

/// The start of the last line, with everything that it depends on.
struct PrologCache {
    std::int64_t second = std::numeric_limits<std::int64_t>::min();
    long zone = 0;
    std::uint32_t generation = 0;
    bool localTime = false;
    unsigned char length = 0;
    char text[kStartSize] = {};
};

// Not inline, or the address of the thread's variable would be asked for anew at every use.
__attribute__((noinline)) PrologCache& CacheOfThread() noexcept {
    thread_local PrologCache cache;
    return cache;
}

// Once a second: kept out of the way of every line.
__attribute__((noinline, cold)) void Build(PrologCache& cache, const std::tm& time) noexcept {
    char* const end = cache.text + kStartSize;
    char* next = cache.text;
    *next++ = '[';
    next = std::to_chars(next, end, platform::ProcessId()).ptr;
    *next++ = '/';
    next = std::to_chars(next, end, platform::ThreadId()).ptr;
    *next++ = ']';
    *next++ = '[';
    WriteLongDate(time, next);
    next += kLongDateLength;
    *next++ = ']';
    *next++ = '[';
    cache.length = static_cast<unsigned char>(next - cache.text);
}

}  // namespace

std::string_view PrologStart(bool localTime) noexcept {
    PrologCache& cache = CacheOfThread();
    const std::int64_t second = platform::CurrentSecond();
    const std::uint32_t generation = platform::ForkGeneration();
    const long zone = localTime ? platform::LocalTimeZone() : 0;
    if (cache.second != second || cache.localTime != localTime || cache.generation != generation ||
        cache.zone != zone) {
        Build(cache, platform::BreakDown(second, localTime));
        cache.second = second;
        cache.zone = zone;
        cache.generation = generation;
        cache.localTime = localTime;
    }
    return {cache.text, cache.length};
}

}  // namespace zoerrlog::message
