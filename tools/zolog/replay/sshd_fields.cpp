#include <zolog/replay/sshd_fields.h>

#include <algorithm>
#include <optional>

#include <zolog/replay/sshd_text.h>

namespace zolog {

namespace {

constexpr std::string_view kBeforeLogin = " [preauth]";

// Readers of what stands behind the opening of a report. Each fills the fields that it finds.
using Reader = void (*)(std::string_view text, SshdFields& fields);

// "ADDRESS[ port PORT]", with a colon behind the last of them when more follows.
void ReadAddress(std::string_view text, SshdFields& fields) {
    const std::size_t end = std::min(text.find(' '), text.size());
    fields.address = text.substr(0, end);
    if (fields.address.ends_with(':')) {
        fields.address.remove_suffix(1);
    } else if (text.remove_prefix(end); RemovePrefix(text, " port ")) {
        fields.port = LeadingDigits(text);
    }
}

// " [invalid user ]NAME from ADDRESS port PORT ..."
void ReadPassword(std::string_view text, SshdFields& fields) {
    if (const std::optional<SshdLogin> login = ReadLogin(text)) {
        fields.user = login->user;
        fields.address = login->address;
        fields.port = login->port;
    }
}

// " NAME from ADDRESS[ port PORT]"
void ReadUserAndAddress(std::string_view text, SshdFields& fields) {
    if (const std::optional<Halves> from = SplitAtLast(text, " from ")) {
        fields.user = WithoutLeadingBlanks(from->before);
        ReadAddress(from->after, fields);
    }
}

void ReadUser(std::string_view text, SshdFields& fields) {
    fields.user = WithoutLeadingBlanks(text);
}

// " [invalid user ]NAME"
void ReadUserOfKind(std::string_view text, SshdFields& fields) {
    fields.user = UserName(text);
}

// "NAME[(uid=N)] by [NAME](uid=N)"
void ReadSessionUser(std::string_view text, SshdFields& fields) {
    const std::optional<Halves> by = SplitAtLast(text, " by ");
    const std::string_view user = by ? by->before : text;
    const std::optional<Halves> number = SplitAtLast(user, "(uid=");
    fields.user = number ? number->before : user;
}

// "ADDRESS ..." or "authenticating user NAME ADDRESS port PORT", where only the end is certain.
void ReadPeer(std::string_view text, SshdFields& fields) {
    if (!RemovePrefix(text, "authenticating user ") && !RemovePrefix(text, "invalid user ") &&
        !RemovePrefix(text, "user ")) {
        ReadAddress(text, fields);
        return;
    }
    const std::optional<Halves> port = SplitAtLast(text, " port ");
    if (const std::optional<Halves> user = port ? SplitAtLast(port->before, " ") : std::nullopt) {
        fields.user = WithoutLeadingBlanks(user->before);
        fields.address = user->after;
        fields.port = LeadingDigits(port->after);
    }
}

// "... rhost=HOST[  user=NAME]": the host stands before the name and so cannot be part of it.
void ReadRemoteHost(std::string_view text, SshdFields& fields) {
    const std::optional<Halves> host = SplitAtFirst(text, " rhost=");
    if (!host) {
        return;
    }
    std::string_view rest = host->after;
    const std::size_t end = std::min(rest.find(' '), rest.size());
    fields.address = rest.substr(0, end);
    rest = WithoutLeadingBlanks(rest.substr(end));
    if (RemovePrefix(rest, "user=")) {
        fields.user = WithoutLeadingBlanks(rest);
    }
}

void ReadReverse(std::string_view text, SshdFields& fields) {
    if (const std::optional<SshdHost> host = ReadReverseMapping(text)) {
        fields.address = host->address;
    }
}

struct Report {
    std::string_view words;      // what happened
    std::string_view connected;  // what leads on to the variable part
    Reader read;
    std::string_view authStatus = {};
};

constexpr Report kReports[] = {
    {"Failed password", " for", ReadPassword, "failed"},
    {"Accepted password", " for", ReadPassword, "accepted"},
    {"Failed none", " for", ReadPassword},
    {"Failed publickey", " for", ReadPassword},
    {"Accepted publickey", " for", ReadPassword},
    {"Invalid user", " ", ReadUserAndAddress},
    {"input_userauth_request: invalid user", " ", ReadUser},
    {"Too many authentication failures", " for ", ReadUserOfKind},
    {"Disconnecting: Too many authentication failures", " for ", ReadUserOfKind},
    {"Connection closed", " by ", ReadPeer},
    {"Connection reset", " by ", ReadPeer},
    {"Received disconnect", " from ", ReadAddress},
    {"error: Received disconnect", " from ", ReadAddress},
    {"Did not receive identification string", " from ", ReadAddress},
    {"reverse mapping checking getaddrinfo", " for ", ReadReverse},
};

// What a module "pam_...(SERVICE): " reports.
constexpr Report kModuleReports[] = {
    {"authentication failure", ";", ReadRemoteHost},
    {"session opened", " for user ", ReadSessionUser},
    {"session closed", " for user ", ReadUser},
};

template <std::size_t count>
const Report* FindReport(const Report (&reports)[count], std::string_view text) {
    const Report* const found =
        std::find_if(std::begin(reports), std::end(reports), [text](const Report& report) {
            return text.starts_with(report.words) &&
                   text.substr(report.words.size()).starts_with(report.connected);
        });
    return found != std::end(reports) ? found : nullptr;
}

// `begin` is where the report's words stand in `text`; what is before them counts as theirs.
void ReadReport(const Report& report, std::string_view text, std::size_t begin,
                SshdFields& fields) {
    const std::size_t end = begin + report.words.size();
    fields.function = text.substr(0, end);
    fields.authStatus = report.authStatus;
    report.read(text.substr(end + report.connected.size()), fields);
}

// Reports whose variable part stands among their words.
bool ReadMixedReport(std::string_view text, SshdFields& fields) {
    std::string_view rest = text;
    if (RemovePrefix(rest, "Address ")) {
        if (const std::optional<SshdHost> host = ReadAddressMapping(rest)) {
            fields.function = "Address maps to";
            fields.address = host->address;
            return true;
        }
    } else if (RemovePrefix(rest, "PAM ")) {
        rest.remove_prefix(LeadingDigits(rest).size());
        if (RemovePrefix(rest, " more authentication failure")) {
            fields.function = "PAM more authentication failures";
            ReadRemoteHost(rest, fields);
            return true;
        }
    }
    return false;
}

// Of a report that is not known: the words before the first one that holds a digit, or that
// leads on to a name or an address.
std::string_view OpeningWords(std::string_view text) {
    std::size_t end = 0;
    for (std::size_t begin = 0; begin < text.size(); begin = end + 1) {
        const std::size_t next = std::min(text.find(' ', begin), text.size());
        const std::string_view word = text.substr(begin, next - begin);
        if (word.find_first_of("0123456789") != std::string_view::npos || word == "from" ||
            word == "for") {
            break;
        }
        end = next;
    }
    return text.substr(0, text.substr(0, end).find_last_not_of(" ;:,") + 1);
}

}  // namespace

SshdFields FindSshdFields(std::string_view line) {
    SshdFields fields;
    fields.message = SshdMessage(line);
    std::string_view text = SshdReport(fields.message);
    if (text.ends_with(kBeforeLogin)) {
        text.remove_suffix(kBeforeLogin.size());
    }

    if (const Report* const report = FindReport(kReports, text)) {
        ReadReport(*report, text, 0, fields);
        return fields;
    }
    if (const std::optional<Halves> module = SplitAtFirst(text, "): ");
        module && module->before.starts_with("pam_")) {
        if (const Report* const report = FindReport(kModuleReports, module->after)) {
            ReadReport(*report, text, text.size() - module->after.size(), fields);
            return fields;
        }
    }
    if (!ReadMixedReport(text, fields)) {
        fields.function = OpeningWords(text);
    }
    return fields;
}

}  // namespace zolog
