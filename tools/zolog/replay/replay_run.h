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
    std::uint64_t accepted = 0;
    std::uint64_t refused = 0;

    Tally& operator+=(const Tally& other);
};

struct ReplayResult {
    Tally tally;
    std::chrono::duration<double> seconds{};
};

/// Writes the messages of all input lines to the error channel of the default logger, from
/// `options.threads` threads, or from as many as the system lets start, and at least from the
/// calling one. Returns when the last one is done.
ReplayResult Replay(const Input& input, const ReplayOptions& options);

}  // namespace zolog

#endif
