#include <unistd.h>

#include <gmock/gmock.h>

#include "zolog_process.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using Arguments = std::vector<std::string>;

const char kFailedLine[] = "sshd[1]: Failed password for root from 192.0.2.1 port 9 ssh2\n";

TEST(ZologUsage, WhatCannotBeUsedEndsWithStatus2AndASentence) {
    const TempDirectory directory;
    directory.Write("in.log", kFailedLine);
    fs::create_directories(directory.Path() / "folder/error.log");
    const struct {
        Arguments arguments;
        Arguments sentence;
    } cases[] = {
        {{}, {"Usage", "replay"}},
        {{"reply"}, {"reply"}},
        {{"replay"}, {"FILE"}},
        {{"replay", "--colour", "in.log"}, {"--colour"}},
        {{"replay", "in.log", "--threads", "0"}, {"--threads"}},
        {{"replay", "in.log", "--threads", "1025"}, {"--threads"}},
        {{"replay", "in.log", "--threads", "many"}, {"--threads", "many"}},
        {{"replay", "in.log", "--repeat", "0"}, {"--repeat"}},
        {{"replay", "in.log", "--mode", "5"}, {"--mode"}},
        {{"replay", "in.log", "--max-size", "4096"}, {"--max-size"}},
        {{"replay", "in.log", "--backups", "-1"}, {"--backups"}},
        {{"replay", "in.log", "--out", ""}, {"--out"}},
        {{"replay", "in.log", "none.log"}, {"'none.log'", "No such file"}},
        {{"replay", "in.log", "folder"}, {"'folder'", "Is a directory"}},
        {{"replay", "in.log", "--out", "in.log"}, {"'in.log'", "ot a directory"}},
        {{"replay", "in.log", "--out", "in.log/sub"}, {"'in.log/sub'", "ot a directory"}},
        {{"replay", "in.log", "--out", "folder", "--mode", "1"},
         {"'folder/error.log'", "Is a directory"}},
        {{"replay", "in.log", "--resources", "in.log"}, {"'in.log'", "not a directory"}},
        {{"replay", "in.log", "--locale", "f/r"}, {"'f/r'", "locale"}},
    };
    for (const auto& [arguments, sentence] : cases) {
        const Outcome outcome = RunZolog(directory, arguments);
        const std::string shown = testing::PrintToString(arguments);
        EXPECT_EQ(outcome.status, 2) << shown;
        EXPECT_EQ(outcome.out, "") << shown;
        for (const std::string& part : sentence) {
            EXPECT_THAT(outcome.err, HasSubstr(part)) << shown;
        }
        EXPECT_FALSE(fs::exists(directory.Path() / "zolog-out")) << shown;
    }
}

TEST(ZologUsage, HelpAndVersionAreNoErrors) {
    const TempDirectory directory;
    for (const auto& [arguments, shown] : {std::pair{Arguments{"--help"}, "replay"},
                                           {{"replay", "--help"}, "--max-size"},
                                           {{"--version"}, "zolog 1."}}) {
        const Outcome outcome = RunZolog(directory, arguments);
        EXPECT_EQ(outcome.status, 0) << shown;
        EXPECT_THAT(outcome.out, HasSubstr(shown));
        EXPECT_EQ(outcome.err, "") << shown;
    }
}

TEST(ZologUsage, AReadOnlyOutputDirectoryEndsWithStatus2) {
    const TempDirectory directory;
    fs::create_directory(directory.Path() / "out");
    fs::permissions(directory.Path() / "out", fs::perms::owner_read | fs::perms::owner_exec);
    // The superuser is refused only without the capability to override permissions.
    const std::string launcher = ::geteuid() == 0 ? "setpriv --bounding-set=-dac_override" : "";
    if (!launcher.empty() && RunZolog(directory, {"--version"}, "", launcher).status != 0) {
        GTEST_SKIP() << "the superuser cannot give up its capabilities here";
    }
    const Outcome outcome =
        RunZolog(directory, {"replay", "-", "--out", "out"}, kFailedLine, launcher);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("'out/error.log': Permission denied"));
}

TEST(ZologUsage, ARefusedMessageEndsWithStatus1) {
    const TempDirectory directory;
    // Standard output is a file here, and that is no console.
    const Outcome outcome = RunZolog(directory, {"replay", "-", "--console"}, kFailedLine);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.Values("refused"), Arguments{"1"});
    EXPECT_EQ(outcome.Values("accepted"), Arguments{"0"});
    EXPECT_EQ(outcome.Values("file"), Arguments{});
    EXPECT_FALSE(fs::exists(directory.Path() / "zolog-out"));
}

TEST(ZologUsage, QuietSaysNothing) {
    const TempDirectory directory;
    const Outcome outcome = RunZolog(directory, {"replay", "-", "--quiet"}, kFailedLine);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.err, "");
    EXPECT_EQ(ReadLog(directory.Path() / "zolog-out").size(), 1U);
}

}  // namespace
