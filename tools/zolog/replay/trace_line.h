#ifndef ZOLOG_REPLAY_TRACE_LINE_H
#define ZOLOG_REPLAY_TRACE_LINE_H

namespace zolog {

struct InputLine;

enum class TraceOutcome {
    kFilteredOut,  ///< the configuration does not let the line through
    kTraced,
    kRefused  ///< it could not be laid out, or the trace log did not take it
};

/// Offers a line to the trace channel of the default logger, for the sub-component that checks who
/// logs in. Any thread may call it.
TraceOutcome TraceLine(const InputLine& line);

}  // namespace zolog

#endif
