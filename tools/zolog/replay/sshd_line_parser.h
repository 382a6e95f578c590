#ifndef ZOLOG_REPLAY_SSHD_LINE_PARSER_H
#define ZOLOG_REPLAY_SSHD_LINE_PARSER_H

#include <optional>
#include <string_view>

namespace zolog {

enum class SshdEventKind { kFailedPassword, kAcceptedPassword, kBreakInAttempt };

/// What a line of an sshd log reports. The texts lie inside the line.
struct SshdEvent {
    SshdEventKind kind;
    std::string_view name;  ///< user, or the host name of a break-in attempt; may be empty
    std::string_view address;
    std::string_view port;  ///< empty for a break-in attempt
};

/// The event that `line`, without its line end, reports; nothing for every other line.
///
/// User and host names come from whoever connects, and may look like a part of the line or like
/// a whole other report. A line therefore counts only for what its message begins with, and the
/// name reaches as far as the rest of the message lets it.
std::optional<SshdEvent> ParseSshdLine(std::string_view line);

}  // namespace zolog

#endif
