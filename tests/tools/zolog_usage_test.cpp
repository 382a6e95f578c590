#include <gmock/gmock.h>

#include "tools/zolog_process.h"

namespace {

using testing::HasSubstr;

const char kFailedLine[] = "sshd[1]: Failed password for root from 192.0.2.1 port 9 ssh2\n";

TEST(ZologUsage, TheStatusAndASentenceSayHowItEnded) {
    const zotest::TemporaryDirectory directory;
    directory.Write("in.log", kFailedLine);
    directory.Write("bad", "version: 1.1\ndata: User\n");
    std::filesystem::create_directories(directory.File("folder/error.log"));
    std::filesystem::create_directories(directory.File("o/trace.log"));
    const struct {
        Arguments arguments;
        int status;
        Arguments sentence;
    } cases[] = {
        {{"--help"}, 0, {"replay"}},
        {{"replay", "--help"}, 0, {"--max-size"}},
        {{"--version"}, 0, {"zolog 1."}},
        {{}, 2, {"Usage", "replay"}},
        {{"reply"}, 2, {"reply"}},
        {{"replay"}, 2, {"FILE"}},
        {{"replay", "in.log", "--threads", "1025"}, 2, {"--threads"}},
        {{"replay", "in.log", "--mode", "5"}, 2, {"--mode"}},
        {{"replay", "in.log", "--max-size", "4096"}, 2, {"--max-size"}},
        {{"replay", "in.log", "--out", ""}, 2, {"--out"}},
        {{"replay", "in.log", "none.log"}, 2, {"'none.log'", "No such file"}},
        {{"replay", "in.log", "folder"}, 2, {"'folder'", "Is a directory"}},
        {{"replay", "in.log", "--out", "in.log/sub"}, 2, {"'in.log/sub'", "ot a directory"}},
        {{"replay", "in.log", "--out", "folder", "--mode", "1"},
         2,
         {"'folder/error.log'", "Is a directory"}},
        {{"replay", "in.log", "--out", "o", "--mode", "1"}, 2, {"'o/trace.log'", "Is a directory"}},
        {{"replay", "in.log", "--trace-config", "none.conf"}, 2, {"'none.conf'", "No such file"}},
        {{"replay", "in.log", "--out", "o", "--trace-config", "o"}, 2, {"'o'", "Is a directory"}},
        {{"replay", "in.log", "--out", "o", "--trace-config", "bad"}, 2, {"zolog check bad"}},
        {{"replay", "in.log", "--resources", "in.log"}, 2, {"'in.log'", "not a directory"}},
        {{"replay", "in.log", "--locale", "f/r"}, 2, {"'f/r'", "locale"}},
        // Standard output is a file here, and that is no console.
        {{"replay", "in.log", "--console"}, 1, {"traced: 0\naudited: 0\nrefused: 3\n"}},
    };
    for (const auto& [arguments, status, sentence] : cases) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Outcome outcome = RunZolog(directory, arguments);
        EXPECT_EQ(outcome.status, status);
        EXPECT_EQ(status == 2 ? outcome.out : outcome.err, "");
        for (const std::string& part : sentence) {
            EXPECT_THAT(status == 2 ? outcome.err : outcome.out, HasSubstr(part));
        }
        EXPECT_FALSE(std::filesystem::exists(directory.File("zolog-out")));
    }
}

TEST(ZologUsage, QuietSaysNothing) {
    const zotest::TemporaryDirectory directory;
    const Outcome outcome = RunZolog(directory, {"replay", "-", "--quiet"}, kFailedLine);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.err, "");
    EXPECT_EQ(ReadLog(directory.File("zolog-out")).size(), 1U);
}

}  // namespace
