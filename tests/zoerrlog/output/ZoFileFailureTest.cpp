#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zoi18n/zoi18n.h>

#include <cerrno>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <support/ChildProcess.h>
#include <zoerrlog/output/ZoFileOutput.h>

#include "FailingCalls.h"
#include "OutputTestSupport.h"

namespace {

using enum CZoFileOutput::RolloverMode;
using namespace zotest;

/// What happens to an output between two Opens, each call of which is made to fail once.
struct Life {
    int mode;
    bool fileExists;
    int maxSizeMB;
    long secondsBetweenLines;
    bool isRetry;  // the first rename is refused, and the failures begin after Open
};

constexpr Life kLives[] = {
    {0, false, 1, 301, false}, {0, true, 1, 301, false}, {1, true, 1, 301, false},
    {2, false, 1, 301, false}, {2, true, 1, 301, false}, {2, true, 1, 301, true},
    {3, false, 1, 301, false}, {3, true, 1, 301, false}, {3, true, 0, 301, false},
    {3, true, 0, 0, false},    {4, false, 1, 0, false},  {4, true, 1, 1, false},
    {4, true, 1, 301, true}};

constexpr struct {
    Call call;
    int error;
} kFailures[] = {{Call::Access, EIO},    {Call::Open, EMFILE},   {Call::Open, EACCES},
                 {Call::Rename, EIO},    {Call::Rename, ENOENT}, {Call::Rename, EACCES},
                 {Call::Rename, EEXIST}, {Call::Unlink, EACCES}, {Call::Unlink, EIO},
                 {Call::Unlink, ENOENT}};

enum class Outcome {
    GoesOn,      // nothing is refused; with a refused rename, in the old file
    Dead,        // that operation and all later ones are refused, until Open
    TriesAgain,  // that operation is refused, the next one carries out what failed
};

Outcome Expected(const Life& life, Call call, int error, unsigned nth) {
    const bool rollsOver = life.mode == RolloverAtOpen || life.mode == RolloverAtOpenAndBySize;
    if (call == Call::Access) {  // counts as a file that exists
        return rollsOver && !life.fileExists ? Outcome::Dead : Outcome::GoesOn;
    }
    if (call == Call::Rename && error == EACCES) {
        const bool isNumbered = life.secondsBetweenLines == 0 && nth > 1;
        return isNumbered ? Outcome::Dead : Outcome::GoesOn;
    }
    if (error == EEXIST || (call == Call::Unlink && error == ENOENT)) {
        return Outcome::GoesOn;
    }
    const bool mayTryAgain = call != Call::Open && life.isRetry && life.mode == RolloverAtOpen;
    return mayTryAgain ? Outcome::TriesAgain : Outcome::Dead;
}

/// True when the chosen call was made, and so failed.
bool RunLife(const Life& life, Call call, int error, unsigned nth) {
    SCOPED_TRACE(testing::Message() << "life " << &life - kLives << ", function " << int(call)
                                    << ", error " << error << ", call " << nth);
    const LogFolder folder;
    TestClock clock;
    for (const char* const year : {"2015", "2016", "2017", "2018", "2019"}) {
        folder.Write("trace_" + std::string(year) + "0101_000000.log", "");
    }
    if (life.fileExists) {
        folder.Write("trace.log", "old\n");
    }
    const int before = OpenDescriptors();
    CZoFileOutput output;
    EXPECT_TRUE(output.SetParams(folder.Log().c_str(), life.mode, life.maxSizeMB, 3));
    FailCalls(Call::Rename, {EACCES});
    EXPECT_TRUE(!life.isRetry || output.Open());
    FailCalls(Call::Rename, {});
    std::vector<int> errors(nth);
    errors.back() = error;
    FailCalls(call, errors);
    bool failed = false;
    const auto isAsDocumented = [&](bool taken) {
        const Outcome outcome = Expected(life, call, error, nth);
        const bool failsHere = !failed && !FailuresArePending();
        failed = failed || failsHere;
        return taken == (outcome == Outcome::GoesOn || !failed ||
                         (outcome == Outcome::TriesAgain && !failsHere));
    };
    EXPECT_TRUE(life.isRetry || isAsDocumented(output.Open()));
    std::map<std::string, int> accepted;
    accepted["old"] = life.fileExists && life.mode != Overwrite ? 1 : 0;
    for (const std::string line : {"one", "two", "three"}) {
        clock.Advance(life.secondsBetweenLines);
        accepted[line] = output.Log((line + '\n').c_str()) ? 1 : 0;
        EXPECT_TRUE(isAsDocumented(accepted[line] == 1)) << line;
    }
    FailCalls(call, {});
    output.Close();
    EXPECT_EQ(before, OpenDescriptors());
    for (auto found = folder.Lines(); const auto& [line, times] : accepted) {
        // A failure may leave what was to be overwritten.
        EXPECT_TRUE(found[line] == times || (times == 0 && line == "old")) << line;
    }
    EXPECT_TRUE(output.Open() && output.Log("a new life\n"));
    return failed;
}

TEST(ZoFileFailure, WhicheverCallFailsTheResultIsAsDocumentedAndNoAcceptedLineIsLost) {
    Dl_info info = {};
    ASSERT_NE(0, ::dladdr(reinterpret_cast<void*>(&ZoOpen), &info));
    ASSERT_FALSE(std::string_view(info.dli_fname).ends_with("libzoi18n.so.1"));
    for (const auto& [call, error] : kFailures) {
        unsigned failures = 0;
        for (const Life& life : kLives) {
            for (unsigned nth = 1; RunLife(life, call, error, nth); ++nth) {
                ++failures;
            }
        }
        EXPECT_GE(failures, 5U) << int(call);
    }
}

// Makes this process one to which, unlike to the superuser, access can be denied, and the owner of
// the folder and of the log in it.
void BecomeUnprivileged(const LogFolder& folder) {
    constexpr unsigned kNobody = 65534;
    if (::geteuid() == 0) {
        ASSERT_EQ(0, ::chown(folder.Path().c_str(), kNobody, kNobody));
        ASSERT_EQ(0, ::chown(folder.Log().c_str(), kNobody, kNobody));
        ASSERT_TRUE(::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
    }
}

TEST(ZoFileRetry, ARefusedRenameLetsLinesGoOnAndIsTriedAgainAfterMoreThanThreeHundredSeconds) {
    const struct {
        long seconds;
        mode_t folder;
        const char* line;
    } steps[] = {{0, 0500, "refused\n"},
                 {300, 0700, "too early\n"},
                 {1, 0500, "refused again\n"},
                 {300, 0700, "too early again\n"}};
    for (const int mode : {RolloverAtOpen, RolloverBySize, RolloverAtOpenAndBySize}) {
        SCOPED_TRACE(mode);
        const LogFolder folder;
        folder.Write("trace.log", "old\n");
        EXPECT_TRUE(SucceedsInChild([&] {
            BecomeUnprivileged(folder);
            TestClock clock;
            CZoFileOutput output;
            const int maxSizeMB = mode == RolloverBySize ? 0 : 1;
            ASSERT_TRUE(output.SetParams(folder.Log().c_str(), mode, maxSizeMB, 0));
            ASSERT_EQ(0, ::chmod(folder.Path().c_str(), 0500));
            EXPECT_TRUE(output.Open());
            std::string old = "old\n";
            for (const auto& [seconds, permissions, line] : steps) {
                ASSERT_EQ(0, ::chmod(folder.Path().c_str(), permissions));
                clock.Advance(seconds);
                EXPECT_TRUE(output.Log(line));
                EXPECT_EQ(old += line, folder.ReadLog());
            }
            clock.Advance(1);
            EXPECT_TRUE(output.Log("new\n"));
            EXPECT_EQ("new\n", folder.ReadLog());
            EXPECT_EQ(old, folder.Read("trace" + DateOf(TestClock::kStart + 602) + ".log"));
        }));
    }
}

TEST(ZoFileRetry, ARetryThatFailsAndIsThenRefusedAgainAndAgainKeepsNoDescriptors) {
    const LogFolder folder;
    TestClock clock;
    folder.Write("trace.log", "old\n");
    const int before = OpenDescriptors();
    CZoFileOutput output;
    ASSERT_TRUE(output.SetParams(folder.Log().c_str(), RolloverAtOpen, 1, 0));
    FailCalls(Call::Rename, {EACCES});
    ASSERT_TRUE(output.Open());
    for (int i = 0; i < 20; ++i) {
        clock.Advance(301);
        FailCalls(Call::Rename, {EIO, EACCES});
        EXPECT_FALSE(output.Log("not taken\n"));
        EXPECT_EQ(before + 1, OpenDescriptors()) << "another thread may be writing to it";
        EXPECT_TRUE(output.Log("taken\n"));
    }
    output.Close();
    EXPECT_EQ(before, OpenDescriptors());
    EXPECT_EQ(20, folder.Lines()["taken"]);
}

}  // namespace
