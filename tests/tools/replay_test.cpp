#include <cstdlib>
#include <map>

#include <gmock/gmock.h>

#include "tools/zolog_process.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using zotest::TemporaryDirectory;

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
        {std::string("gw sshd[1]: Failed password for {1}'s %n\0b from 192.0.2.5 port 6 ssh2", 65),
         "[ERROR][zo-login-00001] Failed password for {1}'s %n?b from 192.0.2.5 port 6",
         "[ERROR][zo-login-00001] Échec du mot de passe pour {1}'s %n?b depuis 192.0.2.5, port 6"},
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

// Lines are counted from 1 in every file.
Arguments Expected(const std::string& file, std::string Row::*language) {
    Arguments lines;
    for (std::size_t i = 0; i < Rows().size(); ++i) {
        if (const std::string& text = Rows()[i].*language; !text.empty()) {
            lines.push_back("[" + file + ":" + std::to_string(i + 1) + "]" + text);
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
        {lf, "a.log", {"--locale", "fr_CA"}, &Row::french},
        {lf, "a.log", {"--locale", "xx"}, &Row::english},
    };
    for (const auto& [input, name, options, language] : cases) {
        const TemporaryDirectory directory;
        fs::create_directory(directory.File("in"));
        directory.Write("in/a.log", input);
        Arguments arguments = {"replay", name == "-" ? name : "in/" + name, "--out", "deep/er"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = RunZolog(directory, arguments, name == "-" ? input : "");

        SCOPED_TRACE(testing::PrintToString(arguments));
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_THAT(outcome.out, HasSubstr("lines read: " + std::to_string(Rows().size()) + "\n"));
        EXPECT_EQ(ReadLog(directory.File("deep/er")), Expected(name, language));
    }
}

TEST(Replay, TakesTextsFromTheChosenResources) {
    const TemporaryDirectory directory;
    directory.Write("Login_Logout.properties", "zo-login-00001 = {2} {1} {0}\n");
    ASSERT_EQ(RunZolog(directory, {"replay", "-", "--resources", "."}, InputText("\n")).status, 0);
    EXPECT_EQ(ReadLog(directory.File("zolog-out")).front(),
              "[-:1][ERROR][zo-login-00001] 9 192.0.2.1 root");
}

// The same lines from any number of threads, as many as `counts`, the head of the summary, says;
// and each of them once in every repetition when the log rolls over.
void ExpectReports(const std::string& input, const std::string& counts, std::size_t messages,
                   std::size_t repeat) {
    Arguments lines[2];
    for (const bool parallel : {false, true}) {
        const TemporaryDirectory directory;
        const Outcome outcome =
            RunZolog(directory, {"replay", input, "--threads", parallel ? "8" : "1"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, testing::StartsWith(counts));
        lines[parallel] = ReadLog(directory.File("zolog-out"));
    }
    EXPECT_EQ(lines[0].size(), messages);
    EXPECT_EQ(lines[0], lines[1]);

    const TemporaryDirectory directory;
    const Outcome outcome =
        RunZolog(directory, {"replay", input, "--repeat", std::to_string(repeat), "--mode", "3",
                             "--max-size", "1", "--backups", "0", "--threads", "8"});
    std::map<std::string, std::size_t> times;
    for (const std::string& line : ReadLog(directory.File("zolog-out"))) {
        ++times[line];
    }
    for (const std::string& line : lines[0]) {
        EXPECT_EQ(times[line], repeat) << line;
    }
    EXPECT_EQ(times.size(), messages);
    const fs::directory_iterator files(directory.File("zolog-out"));
    EXPECT_GT(std::distance(files, fs::directory_iterator()), 6);
    for (const fs::directory_entry& file : fs::directory_iterator(directory.File("zolog-out"))) {
        EXPECT_LT(file.file_size(), 1U << 20) << file.path();
        EXPECT_THAT(outcome.out, HasSubstr("\nfile: zolog-out/" + file.path().filename().string() +
                                           " (" + std::to_string(file.file_size()) + " bytes)\n"));
    }
}

TEST(Replay, FindsTheReportsOfTheSample) {
    ExpectReports(ZOLOG_SAMPLE,
                  "lines read: 201\nERROR: 43\nWARNING: 9\nINFO: 3\naccepted: 55\noffered: 201\n"
                  "filtered out: 0\ntraced: 201\naudited: 201\nrefused: 0\n",
                  55, 500);
}

TEST(Replay, FindsTheReportsOfARealLog) {
    const char* const input = std::getenv("ZOLOG_REAL_INPUT");
    if (input == nullptr || !fs::exists(input)) {
        GTEST_SKIP() << "ZOLOG_REAL_INPUT names no file";
    }
    ExpectReports(
        input,
        "lines read: 2000\nERROR: 520\nWARNING: 85\nINFO: 1\naccepted: 606\noffered: 2000\n"
        "filtered out: 0\ntraced: 2000\naudited: 2000\nrefused: 0\n",
        606, 100);
}

}  // namespace
