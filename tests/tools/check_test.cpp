#include <gmock/gmock.h>

#include <algorithm>

#include <zolog/check/findings.h>

#include "tools/zolog_process.h"

namespace {

using zotest::TemporaryDirectory;

Outcome Check(const std::string& content) {
    const TemporaryDirectory directory;
    directory.Write("f", content);
    return RunZolog(directory, {"check", "f"});
}

TEST(Check, ReportsWhatTheFileReallySelects) {
    const Outcome outcome = Check(
        "#\nversion 1.1\ncomponents: Log Login_Logout/Send_Response\n"
        "data Pid,Message\tTid User\nUser ==bo \"b\"\nPid ==6\nPid !=7\nMessage:@@a\r\nTid\t!@c\n");
    EXPECT_EQ(
        outcome.out,
        "version: 1.1\ncomponents:\n  0x01000000 Log\n  0x01010000 Log/Legacy\n"
        "  0x07020000 Login_Logout/Send_Response\n"
        "fields:\n  Pid 8\n  Message 64\n  Tid 8\n  User 32\nline width in columns: 118\n"
        "filters:\n  User == \"bo \"b\"\" (is exactly this text)\n"
        "  Pid != \"7\" (is anything but this text)\n  Message @@ \"a\" (contains this text)\n"
        "  Tid !@ \"c\" (does not contain this text)\n"
        "f:7: warning: this filter replaces the earlier one of line 6: Pid == \"6\"\n");
    EXPECT_THAT(Check("components Login_Logout/Authentication\n").out,
                testing::ContainsRegex("Authentication\n[^\n]*/Send_Response .added by a rule for "
                                       "older files.\n[^\n]*/Receive_Request .added by"));
}

TEST(Check, WarnsOfWhatIsSkippedOrSurprising) {
    const std::string head = "version 1.1\ncomponents Log\ndata User Pid Tid\n";
    const struct {
        std::string content;
        const char* warnings;
    } cases[] = {
        {head, ""},
        {"",
         R"(f: warning: no line says version 1.1; the file counts as an older one
f: warning: no component is selected; no line is traced
f: warning: no field is traced
)"},
        {"version 2.1.1\nversion 1.0\n" + head,
         R"(f:1: warning: the version is "2.1.1", not "1.1"; it counts as 1.1 all the same
f:2: warning: the version is "1.0", not "1.1"; it does not count
)"},
        {"version 1.1\ncomponents Log/Legcy Logging\x1B Log\ndata User tenant User Pdi\nUser ==a\r",
         R"(f:2: warning: unknown component "Log/Legcy" (did you mean "Log/Legacy"?)
f:2: warning: unknown component "Logging\x1B"
f:3: warning: unknown field "tenant" (did you mean "Tenant"? names are case-sensitive)
f:3: warning: the field "User" is named again, which changes nothing
f:3: warning: unknown field "Pdi" (did you mean "Pid"?)
f:4: warning: blanks at an end of the filter's value are part of it: "a\x0D"
)"},
        {head + "User bob\nUser==bob\nuser ==bob\nUser == bob\nPid ==bob\t\r\nTid ==\n",
         R"(f:4: warning: filter skipped: no operator (==, !=, @@ or !@) behind "User"
f:5: warning: filter skipped: no blank between "User" and the operator in "User==bob"
f:6: warning: filter skipped: unknown field "user" (did you mean "User"? names are case-sensitive)
f:7: warning: blanks at an end of the filter's value are part of it: " bob"
f:8: warning: blanks at an end of the filter's value are part of it: "bob\x09"
f:9: warning: the filter of "Tid" has an empty value
)"},
        {head + std::string("User ==a\0b\n", 11) + std::string(8093, '#') + "\ndata\nDate ==1",
         R"(f:4: warning: the line holds a zero byte; what follows it is not read
f:5: warning: the line is cut at 8092 bytes; its rest is read as a line of its own
f:6: warning: filter skipped: a second "data" line is not read as such
f:7: warning: the filtered field "Date" is not traced: its setter is asked only if the caller sets it
)"},
    };
    for (const auto& [content, warnings] : cases) {
        const Outcome outcome = Check(content);
        EXPECT_EQ(outcome.status, *warnings == '\0' ? 0 : 1);
        const std::size_t first = std::min(outcome.out.find("f:"), outcome.out.size());
        EXPECT_EQ(outcome.out.substr(first), warnings);
    }
}

TEST(Check, ListsNamesAndSaysWhyItCannotWork) {
    const TemporaryDirectory directory;
    directory.Write("order", "components Logg\n\nUser ==\x1B\n");
    directory.Write("mark", "\357\273\277components Log\n");
    const struct {
        Arguments arguments;
        int status;
        std::string out;
        std::string err;
    } cases[] = {
        {{"order"}, 2, "^order:1: warning: unknown", "order:3: error: expected \"data\", fou"},
        {{"mark"}, 2, "^$", "components\" behind a byte order mark"},
        {{"none"}, 2, "^$", "cannot read 'none': No such file"},
        {{"."}, 2, "^$", "cannot read '.': Is a directory"},
        {{}, 2, "^$", "FILE is required"},
        {{"order", "--fields"}, 2, "^$", "--fields"},
        {{"--components", "--fields"}, 0, "/Receive_Request\n0 Message 64\n1 SrcFile 32\n", ""},
        {{"--components"}, 0, "^0x01000000 Log\n0x01010000 Log/Legacy\n", ""},
    };
    for (auto [arguments, status, out, err] : cases) {
        arguments.insert(arguments.begin(), "check");
        const Outcome outcome = RunZolog(directory, arguments);
        EXPECT_EQ(outcome.status, status);
        EXPECT_THAT(outcome.out, testing::ContainsRegex(out));
        EXPECT_THAT(outcome.err, testing::HasSubstr(err));
    }
}

TEST(Check, BlamesMissingComponentLibraries) {
    const ZoTraceComponentInfo components[] = {{false, 0x01000000, "Log"}};
    zolog::Findings findings(components, {});
    findings.Add({ZoTraceConfigEventKind::kUnknownComponent, 1, {}, "Logon", nullptr, nullptr});
    EXPECT_THAT(findings.Warnings().at(0).text,
                testing::HasSubstr("no component library was found"));
}

}  // namespace
