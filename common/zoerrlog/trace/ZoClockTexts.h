#ifndef ZOERRLOG_TRACE_ZOCLOCKTEXTS_H
#define ZOERRLOG_TRACE_ZOCLOCKTEXTS_H

#include <string_view>

namespace zoerrlog::trace {

/// The current time as the three clock fields show it.
struct ClockTexts {
    std::string_view date;         ///< "mm/dd/yyyy"
    std::string_view time;         ///< "hh:mm:ss"
    std::string_view preciseTime;  ///< "hh:mm:ss.mmm"
};

/// Reads the clock once, for local time or UTC. Only the first line of a thread's second pays for
/// more than the milliseconds. The texts are valid until the thread's next call.
ClockTexts ReadClock(bool localTime) noexcept;

}  // namespace zoerrlog::trace

#endif
