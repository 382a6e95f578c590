#include <cstdlib>
#include <regex>
#include <set>
#include <sstream>

#include <gmock/gmock.h>

#include "tools/zolog_process.h"

namespace {

// Threads write in any order.
std::multiset<std::string> LinesOf(const std::string& text) {
    std::istringstream stream(text);
    std::multiset<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.insert(line);
    }
    return lines;
}

TEST(ReplayLogs, TraceTheConfiguredFieldsAndAuditWholeLines) {
    const zotest::TemporaryDirectory directory;
    // One filter stands on a field that is not traced.
    directory.Write("t.conf",
                    "version: 1.1\ncomponents: Login_Logout/Authentication\n"
                    "data: Message, SrcFile, User, IPPort\nAuthStatus !=failed\nSrcFile !@:2\n");
    const std::string accepted = "sshd[1]: Accepted password for a";
    const std::string failed = "sshd[1]: Failed password for b from ::1 port 8 ssh2\n";
    RunZolog(directory,
             {"replay", "-", "--threads", "1", "--trace-config", "t.conf", "--format", "2",
              "--separator", "~~"},
             accepted + '\0' + " from ::1 port 9\r\n\r\n" + failed + "gw sshd[2]: %s {0}");
    EXPECT_EQ(directory.Read("zolog-out/trace.log"),
              "Message~~SrcFile~~User~~IPPort\n=======~~=======~~====~~======\n"
              "Accepted password for a? from ::1 port 9~~-:1~~a?~~9\n%s {0}~~-:4~~~~\n");
    EXPECT_EQ(directory.Read("zolog-out/audit.log"),
              accepted + "? from ::1 port 9\n\n" + failed + "gw sshd[2]: %s {0}\n");
}

// With one more line the shipped configuration lets those lines through that hold `pattern`.
TEST(ReplayLogs, HoldWhatTheFilterNamesAndAllOfTheInput) {
    const char* const real = std::getenv("ZOLOG_REAL_INPUT");
    const struct {
        const char* input;
        const char* filter;
        const char* pattern;
        std::size_t traced;
    } cases[] = {
        {ZOLOG_SAMPLE, "User ==root", "(user=|(:|\\[) Failed password for |failures for )root", 26},
        {ZOLOG_SAMPLE, "AuthStatus ==failed", "(:|\\[) Failed password", 43},
        {real, "User ==root", "root", 743},
        {real, "AuthStatus ==failed", "Failed password", 520},
    };
    for (const auto& [input, filter, pattern, traced] : cases) {
        if (input == nullptr || !std::filesystem::exists(input)) {
            continue;  // without the real log
        }
        const zotest::TemporaryDirectory directory;
        std::filesystem::copy(input, directory.File("in.log"));
        std::filesystem::copy(ZOLOG_TRACE_CONFIG, directory.File("t.conf"));
        directory.Write("t.conf", directory.Read("t.conf") + filter + "\n");
        RunZolog(directory, {"replay", "in.log", "--threads", "8", "--trace-config", "t.conf",
                             "--format", "2", "--separator", "\t"});

        const auto lines =
            LinesOf(std::regex_replace(directory.Read("in.log"), std::regex("\r"), ""));
        std::multiset<std::string> expected = {"Message", "======="};
        for (const std::string& line : lines) {
            if (std::regex_search(line, std::regex(pattern))) {
                expected.insert(line.substr(line.find("]: ") + 3));
            }
        }
        std::multiset<std::string> messages;
        for (const std::string& line : LinesOf(directory.Read("zolog-out/trace.log"))) {
            messages.insert(line.substr(line.rfind('\t') + 1));
        }
        EXPECT_EQ(messages.size(), traced + 2) << input << ": " << filter;
        EXPECT_EQ(messages, expected);
        EXPECT_EQ(LinesOf(directory.Read("zolog-out/audit.log")), lines);
    }
}

}  // namespace
