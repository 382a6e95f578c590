#include <zolog/replay/sshd_line_parser.h>

#include <zolog/replay/sshd_text.h>

namespace zolog {

namespace {

std::optional<SshdEvent> ParsePassword(SshdEventKind kind, std::string_view text) {
    // The blank behind it stays: it is the one before "from" when the name is empty.
    const std::optional<SshdLogin> login =
        RemovePrefix(text, " for") ? ReadLogin(text) : std::nullopt;
    if (!login) {
        return std::nullopt;
    }
    return SshdEvent{kind, login->user, login->address, login->port};
}

std::optional<SshdEvent> ParseBreakIn(std::string_view text) {
    std::optional<SshdHost> host;
    if (RemovePrefix(text, "reverse mapping checking getaddrinfo for ")) {
        host = ReadReverseMapping(text);
    } else if (RemovePrefix(text, "Address ")) {
        host = ReadAddressMapping(text);
    }
    if (!host) {
        return std::nullopt;
    }
    return SshdEvent{SshdEventKind::kBreakInAttempt, host->name, host->address, {}};
}

}  // namespace

std::optional<SshdEvent> ParseSshdLine(std::string_view line) {
    std::string_view report = SshdReport(SshdMessage(line));
    if (RemovePrefix(report, "Failed password")) {
        return ParsePassword(SshdEventKind::kFailedPassword, report);
    }
    if (RemovePrefix(report, "Accepted password")) {
        return ParsePassword(SshdEventKind::kAcceptedPassword, report);
    }
    const std::optional<Halves> breakIn = SplitAtLast(report, "POSSIBLE BREAK-IN ATTEMPT");
    return breakIn ? ParseBreakIn(breakIn->before) : std::nullopt;
}

}  // namespace zolog
