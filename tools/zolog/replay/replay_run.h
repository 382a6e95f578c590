#ifndef ZOLOG_REPLAY_REPLAY_RUN_H
#define ZOLOG_REPLAY_REPLAY_RUN_H

#include <array>
#include <chrono>
#include <cstdint>

namespace zolog {

class Input;
struct ReplayOptions;

/// Severities of a message identifier.
enum Severity : unsigned int { kInformation = 1, kWarning = 2, kError = 3 };

/// What a run, or a thread's share of it, has done.
struct Tally {
    std::uint64_t linesRead = 0;
    std::array<std::uint64_t, kError + 1> messages{};  ///< by severity
    std::uint64_t accepted = 0;                        ///< messages that the error log took
    std::uint64_t offered = 0;                         ///< lines that the trace was asked about
    std::uint64_t filteredOut = 0;  ///< of those, not let through by the trace configuration
    std::uint64_t traced = 0;       ///< of those, taken by the trace log
    std::uint64_t audited = 0;      ///< lines that the audit log took
    std::uint64_t refused = 0;      ///< what any of the three logs did not take

    Tally& operator+=(const Tally& other);
};

struct ReplayResult {
    Tally tally;
    std::chrono::duration<double> seconds{};
};

/// Writes all input lines to the audit channel of the default logger, offers them to its trace
/// channel, and writes the messages of those that report something to its error channel, from
/// `options.threads` threads, or from as many as the system lets start, and at least from the
/// calling one. Returns when the last one is done.
ReplayResult Replay(const Input& input, const ReplayOptions& options);

}  // namespace zolog

#endif
