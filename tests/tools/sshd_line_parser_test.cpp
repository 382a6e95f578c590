#include <zolog/replay/sshd_line_parser.h>

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <zolog/replay/sshd_fields.h>

namespace zolog {
namespace {

// "kind|name|address|port", or "" when the line reports nothing.
std::string Parsed(const std::string& line) {
    const std::optional<SshdEvent> event = ParseSshdLine(line);
    if (!event) {
        return "";
    }
    const std::string kinds[] = {"failed", "accepted", "break-in"};
    std::string text = kinds[static_cast<int>(event->kind)];
    for (const std::string_view part : {event->name, event->address, event->port}) {
        text.append("|").append(part);
    }
    return text;
}

TEST(SshdLineParser, FindsTheThreeReportsAndNothingElse) {
    const std::string attempt = "POSSIBLE BREAK-IN ATTEMPT!";
    const std::string forged = "Accepted password for root from 198.51.100.7 port 22 ssh2";
    const std::pair<std::string, std::string> cases[] = {
        {"Failed password for root from 192.0.2.1 port 38926 ssh2", "failed|root|192.0.2.1|38926"},
        {"Accepted password for carol from 2001:db8::1 port 9 ssh2",
         "accepted|carol|2001:db8::1|9"},
        {"message repeated 5 times: [ Failed password for root from 192.0.2.1 port 42 ssh2]",
         "failed|root|192.0.2.1|42"},
        {"message repeated 5 times: [ Failed password for root from 192.0.2.1 port 42]",
         "failed|root|192.0.2.1|42"},
        {"reverse mapping checking getaddrinfo for h.example.com [192.0.2.1] failed - " + attempt,
         "break-in|h.example.com|192.0.2.1|"},
        {"reverse mapping checking getaddrinfo for a [::1] b [192.0.2.1] failed - " + attempt,
         "break-in|a [::1] b|192.0.2.1|"},
        {"Address 192.0.2.1 maps to h.example.com, but this does not map back - " + attempt,
         "break-in|h.example.com|192.0.2.1|"},
        {"", ""},
        {"Failed none for invalid user 0 from 192.0.2.1 port 9 ssh2", ""},
        {"Invalid user " + forged + " from 192.0.2.1", ""},
        {"Failed password for root from 192.0.2.1 port x", ""},
        {"reverse mapping checking getaddrinfo for h - " + attempt, ""},
    };
    for (const auto& [message, expected] : cases) {
        EXPECT_EQ(Parsed("Mar  9 06:12:03 sshd-gateway sshd[4107]: " + message), expected)
            << message;
        EXPECT_EQ(Parsed("Mar  9 gw sshd-session[1]: " + message), expected) << message;
    }
}

TEST(SshdLineParser, TakesAnyUserName) {
    const std::pair<std::string, std::string> cases[] = {
        {"invalid user web", "web"},
        {"invalid user  0101", "0101"},
        {"invalid user", ""},
        {"", ""},
        {"invalid user port 22", "port 22"},
        {"invalid user x from 198.51.100.7 port 22 ssh2", "x from 198.51.100.7 port 22 ssh2"},
        {"invalid user invalid user y", "invalid user y"},
        {"invalid user POSSIBLE BREAK-IN ATTEMPT!", "POSSIBLE BREAK-IN ATTEMPT!"},
        {"sshd[1]: Accepted password for a from 1 port 2",
         "sshd[1]: Accepted password for a from 1 port 2"},
    };
    for (const auto& [name, expected] : cases) {
        const std::string line = "Failed password for " + name + " from 192.0.2.1 port 9 ssh2";
        const std::string event = "failed|" + expected + "|192.0.2.1|9";
        EXPECT_EQ(Parsed("Mar  9 gw sshd[1]: " + line), event);
        // Without the process tag, too.
        EXPECT_EQ(Parsed(line), event);
    }
}

TEST(SshdFields, AreThoseOfWhatTheMessageBeginsWith) {
    const std::string pam = "logname= uid=0 euid=0 tty=ssh ruser= rhost=";
    const std::string failure = "pam_unix(sshd:auth): authentication failure";
    const std::pair<std::string, std::string> cases[] = {
        {"Accepted password for a from ::1 port 9 ssh2", "Accepted password|a|::1|9|accepted"},
        {"message repeated 5 times: [ Failed password for root from ::1 port 9 ssh2]",
         "Failed password|root|::1|9|failed"},
        {"Failed none for invalid user  from ::1 port 9 ssh2", "Failed none||::1|9|"},
        {"Invalid user Failed password for root from 9.9.9.9 port 1 from ::1 port 9",
         "Invalid user|Failed password for root from 9.9.9.9 port 1|::1|9|"},
        {"input_userauth_request: invalid user  0 [preauth] [preauth]",
         "input_userauth_request: invalid user|0 [preauth]|||"},
        {failure + "; " + pam + "h.example.com  user=x  rhost=::1  user=root",
         failure + "|x  rhost=::1  user=root|h.example.com||"},
        {"PAM 5 more authentication failures; " + pam + "h ",
         "PAM more authentication failures||h||"},
        {"pam_x(y): session opened for user a by b by (uid=0)",
         "pam_x(y): session opened|a by b|||"},
        {"Too many authentication failures for sshd[1]: x [preauth]",
         "Too many authentication failures|sshd[1]: x|||"},
        {"Connection closed by invalid user a 9.9.9.9 port 1 192.0.2.1 port 9 [preauth]",
         "Connection closed|a 9.9.9.9 port 1|192.0.2.1|9|"},
        {"Received disconnect from ::1: 11: from 9.9.9.9 port 1", "Received disconnect||::1||"},
        {"reverse mapping checking getaddrinfo for h [192.0.2.1] failed",
         "reverse mapping checking getaddrinfo||192.0.2.1||"},
        {"fatal: Write failed; 6 > 3", "fatal: Write failed||||"},
    };
    for (const auto& [message, expected] : cases) {
        for (const std::string& line : {"Mar  9 gw sshd[1]: " + message, message}) {
            const SshdFields fields = FindSshdFields(line);
            std::string text(fields.function);
            for (const auto part : {fields.user, fields.address, fields.port, fields.authStatus}) {
                text.append("|").append(part);
            }
            EXPECT_EQ(text, expected) << line;
            EXPECT_EQ(fields.message, message);
        }
    }
}

}  // namespace
}  // namespace zolog
