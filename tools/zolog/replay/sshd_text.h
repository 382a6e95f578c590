#ifndef ZOLOG_REPLAY_SSHD_TEXT_H
#define ZOLOG_REPLAY_SSHD_TEXT_H

#include <optional>
#include <string_view>

namespace zolog {

// Parts of an sshd log line. All texts lie inside the text that they were found in.
//
// User and host names come from whoever connects, and may look like a part of the line or like
// a whole other report. A name therefore reaches as far as the rest of the text lets it.

/// Cuts `prefix` off; false, with the text unchanged, when it does not begin with that.
bool RemovePrefix(std::string_view& text, std::string_view prefix);
/// The text without the blanks that it begins with.
std::string_view WithoutLeadingBlanks(std::string_view text);

struct Halves {
    std::string_view before;
    std::string_view after;
};

/// Splits a text at the first or the last place of a separator; nothing when it has none.
std::optional<Halves> SplitAtFirst(std::string_view text, std::string_view separator);
std::optional<Halves> SplitAtLast(std::string_view text, std::string_view separator);

/// The message of a line: what stands behind the process tag "sshd[123]: ". Without one, as some
/// collectors store lines, it begins with the first words that a known report can begin with, and
/// without those it is the whole line.
std::string_view SshdMessage(std::string_view line);
/// What a message reports: the message, or the one inside "message repeated N times: [ ... ]".
std::string_view SshdReport(std::string_view message);

/// The name of a user from "[invalid user ]NAME", which may begin with blanks; may be empty.
std::string_view UserName(std::string_view text);
/// The digits that a text begins with.
std::string_view LeadingDigits(std::string_view text);

struct SshdLogin {
    std::string_view user;
    std::string_view address;
    std::string_view port;
};

/// Who logs in, from " [invalid user ]NAME from ADDRESS port PORT ...", the blank included.
std::optional<SshdLogin> ReadLogin(std::string_view text);

struct SshdHost {
    std::string_view name;
    std::string_view address;
};

/// From "NAME [ADDRESS] failed ...".
std::optional<SshdHost> ReadReverseMapping(std::string_view text);
/// From "ADDRESS maps to NAME, but this does not map back to the address ...".
std::optional<SshdHost> ReadAddressMapping(std::string_view text);

}  // namespace zolog

#endif
