#include <zolog/replay/sshd_text.h>

#include <algorithm>

namespace zolog {

namespace {

constexpr std::size_t npos = std::string_view::npos;

// What reports begin with. In a line without a process tag, what looks like a tag or like another
// report behind any of these is part of a name.
constexpr std::string_view kOpenings[] = {
    "Failed password",
    "Accepted password",
    "reverse mapping checking getaddrinfo for ",
    "Address ",
    "Failed none",
    "Failed publickey",
    "Accepted publickey",
    "Invalid user ",
    "input_userauth_request: ",
    "Too many authentication failures for ",
    "Disconnecting: ",
    "Connection closed by ",
    "Connection reset by ",
    "Received disconnect from ",
    "error: Received disconnect from ",
    "Did not receive identification string from ",
    "pam_unix(",
    "PAM ",
    "message repeated ",
};

struct Tag {
    std::size_t begin = npos;
    std::size_t end = npos;
};

Tag FindTag(std::string_view text) {
    for (std::size_t tag = text.find("sshd"); tag != npos; tag = text.find("sshd", tag + 1)) {
        const std::size_t end = text.find(' ', tag);
        if (end != npos && text.substr(tag, end - tag).ends_with("]:")) {
            return {tag, end + 1};
        }
    }
    return {};
}

std::size_t FindOpening(std::string_view text) {
    std::size_t first = npos;
    for (const std::string_view opening : kOpenings) {
        first = std::min(first, text.find(opening));
    }
    return first;
}

std::optional<Halves> SplitAt(std::string_view text, std::size_t at, std::string_view separator) {
    if (at == npos) {
        return std::nullopt;
    }
    return Halves{text.substr(0, at), text.substr(at + separator.size())};
}

}  // namespace

bool RemovePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::optional<Halves> SplitAtFirst(std::string_view text, std::string_view separator) {
    return SplitAt(text, text.find(separator), separator);
}

std::optional<Halves> SplitAtLast(std::string_view text, std::string_view separator) {
    return SplitAt(text, text.rfind(separator), separator);
}

std::string_view SshdMessage(std::string_view line) {
    const Tag tag = FindTag(line);
    if (const std::size_t opening = FindOpening(line.substr(0, tag.begin)); opening != npos) {
        return line.substr(opening);
    }
    return tag.end == npos ? line : line.substr(tag.end);
}

std::string_view SshdReport(std::string_view message) {
    if (!message.starts_with("message repeated ")) {
        return message;
    }
    const std::optional<Halves> repeated = SplitAtFirst(message, ": [ ");
    if (!repeated) {
        return message;
    }
    std::string_view report = repeated->after;
    if (report.ends_with(']')) {
        report.remove_suffix(1);
    }
    return report;
}

std::string_view UserName(std::string_view text) {
    constexpr std::string_view kInvalidUser = "invalid user";
    text = WithoutLeadingBlanks(text);
    if (text == kInvalidUser || text.starts_with("invalid user ")) {
        text.remove_prefix(kInvalidUser.size());
    }
    return WithoutLeadingBlanks(text);
}

std::string_view LeadingDigits(std::string_view text) {
    return text.substr(0, text.find_first_not_of("0123456789"));
}

std::optional<SshdLogin> ReadLogin(std::string_view text) {
    const std::optional<Halves> port = SplitAtLast(text, " port ");
    const std::optional<Halves> from = port ? SplitAtLast(port->before, " from ") : std::nullopt;
    if (!from || !text.starts_with(' ')) {
        return std::nullopt;
    }
    const std::string_view digits = LeadingDigits(port->after);
    if (digits.empty()) {
        return std::nullopt;
    }
    return SshdLogin{UserName(from->before), from->after, digits};
}

std::optional<SshdHost> ReadReverseMapping(std::string_view text) {
    const std::optional<Halves> end = SplitAtLast(text, "]");
    const std::optional<Halves> name = end ? SplitAtLast(end->before, " [") : std::nullopt;
    if (!name) {
        return std::nullopt;
    }
    return SshdHost{name->before, name->after};
}

std::optional<SshdHost> ReadAddressMapping(std::string_view text) {
    const std::optional<Halves> address = SplitAtFirst(text, " maps to ");
    const std::optional<Halves> name =
        address ? SplitAtLast(address->after, ", but ") : std::nullopt;
    if (!name) {
        return std::nullopt;
    }
    return SshdHost{name->before, address->before};
}

}  // namespace zolog
