#ifndef ZOERRLOG_LOGGER_ZOTRACESTATE_H
#define ZOERRLOG_LOGGER_ZOTRACESTATE_H

namespace zoerrlog::logger {

/// What the trace channel has installed, combined with |.
enum TraceState : unsigned int { kConfiguration = 1, kFirstOutput = 2, kSecondOutput = 4 };

}  // namespace zoerrlog::logger

#endif
