#include <fstream>
#include <sstream>

#include <gmock/gmock.h>

#include "zolog_process.h"

namespace {

namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;

struct Row {
    std::string input;
    std::string english;  // empty when the line writes nothing
    std::string french;
};

const std::vector<Row>& Rows() {
    static const std::vector<Row> rows = {
        {"gw sshd[1]: Failed password for root from 192.0.2.1 port 9 ssh2",
         "[ERROR][zo-login-00001] Failed password for root from 192.0.2.1 port 9",
         "[ERROR][zo-login-00001] Échec du mot de passe pour root depuis 192.0.2.1, port 9"},
        {"gw sshd[1]: Connection closed by 192.0.2.1 [preauth]", "", ""},
        {"", "", ""},
        {"gw sshd[1]: Accepted password for carol from 192.0.2.2 port 8 ssh2",
         "[INFO][zo-login-00002] Accepted password for carol from 192.0.2.2 port 8",
         "[INFO][zo-login-00002] Mot de passe accepté pour carol depuis 192.0.2.2, port 8"},
        {"gw sshd[1]: reverse mapping checking getaddrinfo for h.example.com [192.0.2.3] failed - "
         "POSSIBLE BREAK-IN ATTEMPT!",
         "[WARNING][zo-login-00003] Address 192.0.2.3 claims the name h.example.com, which does "
         "not map back",
         "[WARNING][zo-login-00003] L'adresse 192.0.2.3 prétend se nommer h.example.com, nom qui "
         "ne renvoie pas à cette adresse"},
        {"gw sshd[1]: Failed password for invalid user {1}'s %n from 192.0.2.4 port 7 ssh2",
         "[ERROR][zo-login-00001] Failed password for {1}'s %n from 192.0.2.4 port 7",
         "[ERROR][zo-login-00001] Échec du mot de passe pour {1}'s %n depuis 192.0.2.4, port 7"},
        {std::string("gw sshd[1]: Failed password for a") + '\0' + "b from 192.0.2.5 port 6 ssh2",
         "[ERROR][zo-login-00001] Failed password for a?b from 192.0.2.5 port 6",
         "[ERROR][zo-login-00001] Échec du mot de passe pour a?b depuis 192.0.2.5, port 6"},
    };
    return rows;
}

std::string InputText(const std::string& lineEnd) {
    std::string text;
    for (const Row& row : Rows()) {
        text += row.input + lineEnd;
    }
    return text;
}

std::vector<LogLine> Expected(const std::string& file, std::string Row::*language) {
    std::vector<LogLine> lines;
    int number = 0;
    for (const Row& row : Rows()) {
        ++number;
        if (!(row.*language).empty()) {
            lines.emplace_back(file, number, row.*language);
        }
    }
    return lines;
}

TEST(Replay, WritesEachReportWithItsSourceLine) {
    const std::string lf = InputText("\n");
    const struct {
        std::string input;
        std::string name;
        Arguments options;
        std::string Row::*language;
    } cases[] = {
        {lf, "a.log", {}, &Row::english},
        {InputText("\r\n"), "a.log", {"--threads", "1"}, &Row::english},
        {lf.substr(0, lf.size() - 1), "a.log", {"--threads", "64"}, &Row::english},
        {lf, "-", {}, &Row::english},
        {lf, "a.log", {"--locale", "fr"}, &Row::french},
        {lf, "a.log", {"--locale", "fr_CA"}, &Row::french},
        {lf, "a.log", {"--locale", "xx", "--out", "deep/er/dir"}, &Row::english},
    };
    for (const auto& [input, name, options, language] : cases) {
        const TempDirectory directory;
        if (name != "-") {
            fs::create_directory(directory.Path() / "in");
            directory.Write("in/" + name, input);
        }
        Arguments arguments = {"replay", name == "-" ? name : "in/" + name};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = RunZolog(directory, arguments, name == "-" ? input : "");

        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(outcome.Values("lines read"), Arguments{std::to_string(Rows().size())});
        const bool deep = options.size() > 2;
        EXPECT_EQ(ReadLog(directory.Path() / (deep ? "deep/er/dir" : "zolog-out")),
                  Expected(name, language))
            << testing::PrintToString(arguments);
    }
}

TEST(Replay, CountsTheLinesOfEveryFileFrom1) {
    const TempDirectory directory;
    const std::string line = "sshd[1]: Failed password for root from 192.0.2.1 port 9 ssh2\n";
    directory.Write("a.log", line);
    directory.Write("b.log", "\n" + line);
    directory.Write("empty.log", "");
    ASSERT_EQ(RunZolog(directory, {"replay", "a.log", "empty.log", "b.log", "-"}, line).status, 0);
    const std::string rest =
        "[ERROR][zo-login-00001] Failed password for root from 192.0.2.1 port 9";
    EXPECT_EQ(ReadLog(directory.Path() / "zolog-out"),
              (std::vector<LogLine>{{"-", 1, rest}, {"a.log", 1, rest}, {"b.log", 2, rest}}));
}

// Expects the same lines from any number of threads, as many as `counts`, the head of the summary,
// says.
void ExpectReports(const std::string& input, const std::string& counts, std::size_t messages) {
    std::vector<LogLine> first;
    for (const char* threads : {"1", "2", "8"}) {
        const TempDirectory directory;
        const Outcome outcome = RunZolog(directory, {"replay", input, "--threads", threads});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, testing::StartsWith(counts));
        const auto size = std::to_string(fs::file_size(directory.Path() / "zolog-out/error.log"));
        EXPECT_EQ(outcome.Values("file"), Arguments{"zolog-out/error.log (" + size + " bytes)"});
        EXPECT_EQ(outcome.Values("seconds").size(), 1U);
        EXPECT_EQ(outcome.Values("lines per second").size(), 1U);

        const std::vector<LogLine> lines = ReadLog(directory.Path() / "zolog-out");
        EXPECT_EQ(lines.size(), messages);
        EXPECT_EQ(lines, first.empty() ? lines : first);
        first = lines;
    }
}

TEST(Replay, FindsTheReportsOfTheSample) {
    ExpectReports(ZOLOG_SAMPLE,
                  "lines read: 201\nERROR: 43\nWARNING: 9\nINFO: 3\naccepted: 55\nrefused: 0\n",
                  55);
}

TEST(Replay, FindsTheReportsOfARealLog) {
    if (RealInput().empty()) {
        GTEST_SKIP() << "ZOLOG_REAL_INPUT names no readable file";
    }
    ExpectReports(RealInput(),
                  "lines read: 2000\nERROR: 520\nWARNING: 85\nINFO: 1\naccepted: 606\nrefused: 0\n",
                  606);
}

TEST(Replay, TakesTextsFromTheChosenResources) {
    const TempDirectory directory;
    directory.Write("Login_Logout.properties", "zo-login-00001 = {2} {1} {0}\n");
    ASSERT_EQ(RunZolog(directory, {"replay", "-", "--resources", "."}, InputText("\n")).status, 0);
    EXPECT_EQ(std::get<2>(ReadLog(directory.Path() / "zolog-out").front()),
              "[ERROR][zo-login-00001] 9 192.0.2.1 root");
}

TEST(Replay, WritesLocalTimeOnRequest) {
    const auto hour = [](const Arguments& options) {
        const TempDirectory directory;
        Arguments arguments = {"replay", "-"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        // Six hours ahead of UTC.
        RunZolog(directory, arguments, InputText("\n"), "TZ=XXX-6");
        std::ifstream log(directory.Path() / "zolog-out/error.log");
        std::string line;
        std::getline(log, line);
        const std::size_t colon = line.find(':');
        return colon < 2 || colon == std::string::npos ? -1 : std::stoi(line.substr(colon - 2, 2));
    };
    const int utc = hour({});
    const int local = hour({"--local-time"});
    // The hour may turn between the two runs.
    EXPECT_THAT((local - utc + 24) % 24, testing::AnyOf(6, 7));
}

}  // namespace
