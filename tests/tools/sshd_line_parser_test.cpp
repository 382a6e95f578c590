#include <zolog/replay/sshd_line_parser.h>

#include <string>
#include <utility>

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace zolog
