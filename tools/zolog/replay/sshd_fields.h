#ifndef ZOLOG_REPLAY_SSHD_FIELDS_H
#define ZOLOG_REPLAY_SSHD_FIELDS_H

#include <string_view>

namespace zolog {

/// What a line of an sshd log says, for a trace line. Each text lies inside the line or is a
/// constant; one that the line does not carry is empty.
struct SshdFields {
    std::string_view message;     ///< what stands behind the process tag
    std::string_view function;    ///< what happened: the message's words without its variable parts
    std::string_view user;        ///< whatever the other side sent, without blanks at its begin
    std::string_view address;     ///< of the other side; a host name where the line has only that
    std::string_view port;        ///< of the other side
    std::string_view authStatus;  ///< "failed" or "accepted" for a password, else empty
};

/// The fields of `line`, which comes without its line end. They are those of what its message
/// begins with, or of the message that it says was repeated: a name that looks like another report
/// stays a name.
SshdFields FindSshdFields(std::string_view line);

}  // namespace zolog

#endif
