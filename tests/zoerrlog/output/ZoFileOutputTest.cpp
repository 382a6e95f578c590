#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <string>

#include <zoerrlog/output/ZoFileOutput.h>

#include "OutputTestSupport.h"

namespace {

namespace fs = std::filesystem;

using enum CZoFileOutput::RolloverMode;
using namespace zotest;

constexpr std::uintmax_t kMegabyte = 1 << 20;

TEST(ZoFileOutput, SetParamsRefusesWhatIsOutOfRangeAndThenChangesNothing) {
    const struct {
        const char* name;
        int mode;
        int maxSizeMB;
        int maxBackups;
    } refused[] = {{nullptr, 1, 1, 1}, {"", 1, 1, 1},       {"other", -1, 1, 1},
                   {"other", 5, 1, 1}, {"other", 0, -1, 1}, {"other", 0, 1, -1}};
    const LogFolder folder;
    folder.Write("trace.log", "old\n");
    CZoFileOutput output;
    EXPECT_TRUE(output.SetParams("other", 0, 0, 0) && output.SetParams("other", 4, INT_MAX, 1));
    EXPECT_TRUE(output.SetParams(folder.Log().c_str(), Append, 7, INT_MAX));
    for (const auto& [name, mode, maxSizeMB, maxBackups] : refused) {
        EXPECT_FALSE(output.SetParams(name, mode, maxSizeMB, maxBackups))
            << mode << ", " << maxSizeMB << ", " << maxBackups;
    }
    EXPECT_TRUE(output.Open() && output.Log("new\n"));
    EXPECT_EQ("old\nnew\n", folder.ReadLog());
}

TEST(ZoFileOutput, OpenTreatsAnExistingFileAsItsModeSaysAndCreatesAMissingOneForItsOwnerAlone) {
    const struct {
        int mode;
        const char* log;     // afterwards
        const char* backup;  // empty: there is none
    } cases[] = {{Overwrite, "new\n", ""},
                 {Append, "old\nnew\n", ""},
                 {RolloverAtOpen, "new\n", "old\n"},
                 {RolloverBySize, "old\nnew\n", ""},
                 {RolloverAtOpenAndBySize, "new\n", "old\n"}};
    for (const auto& [mode, log, backup] : cases) {
        SCOPED_TRACE(mode);
        const LogFolder folder;
        CZoFileOutput output;
        ASSERT_TRUE(output.SetParams(folder.File("missing/trace.log").c_str(), mode, 1, 0));
        EXPECT_FALSE(output.Open() || output.Log("line"));
        ASSERT_TRUE(output.SetParams(folder.Log().c_str(), mode, 1, 0));
        EXPECT_TRUE(output.Open() && output.Log("old\n"));
        EXPECT_EQ(1U, folder.Names().size()) << "a missing file does not roll over";
        EXPECT_EQ(fs::perms::owner_read | fs::perms::owner_write,
                  fs::status(folder.Log()).permissions());
        EXPECT_TRUE(output.Open() && output.Log("new\n"));
        EXPECT_EQ(log, folder.ReadLog());
        const auto backups = folder.Backups();
        EXPECT_EQ(backup, backups.empty() ? "" : folder.Read(backups[0]));
    }
}

TEST(ZoFileOutput, ALineThatWouldReachTheLimitStartsANewFileAndOneDescriptorIsHeld) {
    const struct {
        std::uintmax_t size;  // what others made of the file before the line
        int maxSizeMB;
        std::size_t length;
        bool rollsOver;
    } cases[] = {
        {kMegabyte - 10, 1, 10, true},  // exactly the limit
        {kMegabyte - 10, 1, 9, false},
        {0, 1, 3 * kMegabyte, true},
        {kMegabyte, 1, 0, true},
        {0, 0, 0, true},
        {0, 4096, 1, true},  // 2^32 bytes: 0 in 32 bits
        {kMegabyte - 2, 4097, 1, false},
        {0xFFFFFFFF, 1, 5, false},
    };
    const int before = OpenDescriptors();
    const int inherited = OpenDescriptors(true);
    for (int mode = Overwrite; mode <= RolloverAtOpenAndBySize; ++mode) {
        for (const auto& [size, maxSizeMB, length, rollsOver] : cases) {
            SCOPED_TRACE(testing::Message() << "mode " << mode << ", " << size << " + " << length
                                            << " of " << maxSizeMB << " MB");
            EXPECT_EQ(before, OpenDescriptors()) << "after the destructor";
            const LogFolder folder;
            CZoFileOutput output;
            ASSERT_TRUE(output.SetParams(folder.Log().c_str(), mode, maxSizeMB, 0));
            ASSERT_TRUE(output.Open());
            fs::resize_file(folder.Log(), size);
            EXPECT_TRUE(output.Log(std::string(length, 'x').c_str()));
            const auto backups = folder.Backups();
            ASSERT_EQ(mode >= RolloverBySize && rollsOver ? 1U : 0U, backups.size());
            EXPECT_EQ(backups.empty() ? size + length : length, fs::file_size(folder.Log()));
            EXPECT_EQ(before + 1, OpenDescriptors());
            EXPECT_EQ(inherited, OpenDescriptors(true)) << "no executed program gets it";
        }
    }
}

TEST(ZoFileOutput, EveryTextIsWithTheSystemAsItStandsWhenLogReturns) {
    const LogFolder folder;
    const int before = OpenDescriptors();
    CZoFileOutput output;
    MessageText message("+message\n");
    ASSERT_TRUE(output.SetParams(folder.Log().c_str(), Append, 1, 1));
    ASSERT_TRUE(!output.Log("before Open") && output.Open() && output.Open());
    EXPECT_FALSE(output.Log(static_cast<const char*>(nullptr)));
    EXPECT_TRUE(output.Log("no line end, %s %n kept") && output.Log(message));
    EXPECT_EQ("no line end, %s %n kept+message\n", folder.ReadLog());
    EXPECT_TRUE(output.Close() && output.Close() && !output.Log("after Close"));
    EXPECT_EQ(before, OpenDescriptors());
    ASSERT_TRUE(output.SetParams("/dev/full", Append, 1, 0) && output.Open());
    EXPECT_FALSE(output.Log("the write fails"));
}

TEST(ZoFileOutput, OnlyTheFilesThatARolloverStartsBeginWithTheLastPairOfHeaders) {
    const LogFolder folder;
    MessageText names("Pid Date\n");
    MessageText line("--- ----\n");
    MessageText none("");
    CZoFileOutput output;
    ASSERT_TRUE(output.SetParams(folder.Log().c_str(), RolloverBySize, 0, 0) && output.Open());
    const auto check = [&](MessageText& first, MessageText& second, const char* newFile) {
        output.SetHeaders(first, second);
        EXPECT_TRUE(output.Log("a"));
        EXPECT_EQ(newFile, folder.ReadLog());
    };
    check(names, none, "a");
    check(none, line, "a");
    check(names, line, "Pid Date\n--- ----\na");
    check(line, names, "--- ----\nPid Date\na");
}

}  // namespace
