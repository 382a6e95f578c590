#include <zolog/replay/sshd_line_parser.h>

#include <algorithm>

namespace zolog {

namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::string_view kFailed = "Failed password";
constexpr std::string_view kAccepted = "Accepted password";
constexpr std::string_view kReverseMapping = "reverse mapping checking getaddrinfo for ";
constexpr std::string_view kAddress = "Address ";
constexpr std::string_view kBreakIn = "POSSIBLE BREAK-IN ATTEMPT";

bool RemovePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

// Splits `text` at `separator`, which is at position `at` or nowhere.
struct Halves {
    std::string_view before;
    std::string_view after;
};

std::optional<Halves> SplitAt(std::string_view text, std::size_t at, std::string_view separator) {
    if (at == npos) {
        return std::nullopt;
    }
    return Halves{text.substr(0, at), text.substr(at + separator.size())};
}

std::optional<Halves> SplitAtFirst(std::string_view text, std::string_view separator) {
    return SplitAt(text, text.find(separator), separator);
}

std::optional<Halves> SplitAtLast(std::string_view text, std::string_view separator) {
    return SplitAt(text, text.rfind(separator), separator);
}

// The position behind the process tag "sshd[123]: ".
std::size_t EndOfTag(std::string_view text) {
    for (std::size_t tag = text.find("sshd"); tag != npos; tag = text.find("sshd", tag + 1)) {
        const std::size_t end = text.find(' ', tag);
        if (end != npos && text.substr(tag, end - tag).ends_with("]:")) {
            return end + 1;
        }
    }
    return npos;
}

// The message of a line. A line without a process tag, as some collectors store it, is taken from
// the first words that a report can begin with; what looks like a tag behind them is part of a
// name.
std::string_view MessageOf(std::string_view line) {
    const std::size_t opening = std::min({line.find(kFailed), line.find(kAccepted),
                                          line.find(kReverseMapping), line.find(kAddress)});
    if (opening == npos) {
        return {};
    }
    const std::size_t tagEnd = EndOfTag(line.substr(0, opening));
    std::string_view message = line.substr(tagEnd == npos ? opening : tagEnd);
    if (message.starts_with("message repeated ")) {
        const std::optional<Halves> repeated = SplitAtFirst(message, ": [ ");
        return repeated ? repeated->after : message;
    }
    return message;
}

std::string_view UserName(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    text.remove_prefix(first == npos ? text.size() : first);
    constexpr std::string_view kInvalidUser = "invalid user";
    if (text == kInvalidUser || text.starts_with("invalid user ")) {
        text.remove_prefix(kInvalidUser.size());
        const std::size_t name = text.find_first_not_of(' ');
        text.remove_prefix(name == npos ? text.size() : name);
    }
    return text;
}

// " for [invalid user ]NAME from ADDRESS port PORT ...", where NAME can hold all of these words.
std::optional<SshdEvent> ParsePassword(SshdEventKind kind, std::string_view text) {
    if (!text.starts_with(" for ")) {
        return std::nullopt;
    }
    // The blank stays: it is the one before "from" when the name is empty.
    RemovePrefix(text, " for");
    const std::optional<Halves> port = SplitAtLast(text, " port ");
    if (!port) {
        return std::nullopt;
    }
    const std::optional<Halves> from = SplitAtLast(port->before, " from ");
    const std::string_view digits =
        port->after.substr(0, port->after.find_first_not_of("0123456789"));
    if (!from || digits.empty()) {
        return std::nullopt;
    }
    return SshdEvent{kind, UserName(from->before), from->after, digits};
}

// "NAME [ADDRESS] failed - "
std::optional<SshdEvent> ParseReverseMapping(std::string_view text) {
    const std::optional<Halves> end = SplitAtLast(text, "]");
    const std::optional<Halves> name = end ? SplitAtLast(end->before, " [") : std::nullopt;
    if (!name) {
        return std::nullopt;
    }
    return SshdEvent{SshdEventKind::kBreakInAttempt, name->before, name->after, {}};
}

// "ADDRESS maps to NAME, but this does not map back to the address - "
std::optional<SshdEvent> ParseAddressMapping(std::string_view text) {
    const std::optional<Halves> address = SplitAtFirst(text, " maps to ");
    const std::optional<Halves> name =
        address ? SplitAtLast(address->after, ", but ") : std::nullopt;
    if (!name) {
        return std::nullopt;
    }
    return SshdEvent{SshdEventKind::kBreakInAttempt, name->before, address->before, {}};
}

}  // namespace

std::optional<SshdEvent> ParseSshdLine(std::string_view line) {
    std::string_view message = MessageOf(line);
    if (RemovePrefix(message, kFailed)) {
        return ParsePassword(SshdEventKind::kFailedPassword, message);
    }
    if (RemovePrefix(message, kAccepted)) {
        return ParsePassword(SshdEventKind::kAcceptedPassword, message);
    }
    const std::optional<Halves> breakIn = SplitAtLast(message, kBreakIn);
    if (!breakIn) {
        return std::nullopt;
    }
    message = breakIn->before;
    if (RemovePrefix(message, kReverseMapping)) {
        return ParseReverseMapping(message);
    }
    if (RemovePrefix(message, kAddress)) {
        return ParseAddressMapping(message);
    }
    return std::nullopt;
}

}  // namespace zolog
