#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <zoerrlog/output/ZoBackupName.h>
#include <zoerrlog/output/ZoFileOutput.h>

#include "OutputTestSupport.h"

namespace {

namespace fs = std::filesystem;

using enum CZoFileOutput::RolloverMode;
using namespace zoerrlog::output;
using namespace zotest;

// Opens `fileName` in a mode that rolls an existing file over.
bool RollOver(const std::string& fileName, int maxBackups) {
    CZoFileOutput output;
    return output.SetParams(fileName.c_str(), RolloverAtOpen, 1, maxBackups) && output.Open();
}

TEST(ZoBackupName, OnlyTheNameWithADateAndPerhapsANumberIsABackupAndItsPlaceIsThatOfBoth) {
    const std::string_view backups[] = {
        "trace_20231231_235959_120.log", "trace_20240315_142501.log",
        "trace_20240315_142501_1.log",   "trace_20240315_142501_99.log",
        "trace_20240315_142501_100.log", "trace_20240315_142501_99999999999999999999999.log",
        "trace_20240315_142502.old.log", "trace_99999999_999999.log"};
    for (std::size_t i = 0; i < std::size(backups); ++i) {
        for (std::size_t j = 0; j < std::size(backups); ++j) {
            const auto left = ParseBackupName(backups[i], "trace.log");
            const auto right = ParseBackupName(backups[j], "trace.log");
            ASSERT_TRUE(left && right) << backups[i] << " and " << backups[j];
            EXPECT_EQ(i < j, IsOlder(*left, *right)) << backups[i] << " and " << backups[j];
        }
    }
    const std::string_view lookAlikes[] = {
        "Trace_20240315_142501.log",    "trace_20240315-142501.log",
        "trace_20240315_142501x.log",   "trace_20240315_142501_0x.log",
        "trace_2024031a_142501.log",    "trace_20240315_14250.log",
        "trace_20240315_142501.LOG",    "trace_20240315_142501.log.gz",
        "mytrace_20240315_142501.log",  "trace2_20240315_142501.log",
        "trace_20240315_142501__1.log", "trace_20240315_142501"};
    for (const std::string_view name : lookAlikes) {
        EXPECT_FALSE(ParseBackupName(name, "trace.log")) << name;
    }
    EXPECT_FALSE(ParseBackupName("trace_20240315_142501.log", "trace"));
    EXPECT_FALSE(ParseBackupName("a_20240315_142501.b.log", "a.b.log"));
}

TEST(ZoFileRollover, TheLogBecomesTheLatestBackupBesideItAndTheOldestOnesAloneMakeRoom) {
    const std::string date = DateOf(TestClock::kStart);
    const std::string now = "trace" + date;
    const std::string old = "trace_20200101_000000";
    const struct {
        std::string name;  // relative to the folder, as the output is given it
        int maxBackups;
        std::vector<std::string> removed;
        std::vector<std::string> left;  // of these, what ends in a slash is a directory
        std::string added;
    } cases[] = {
        {"/trace.log", 2, {old + ".log", old + "_02.log"}, {old + "_100.log"}, now + ".log"},
        {"/trace.log", 1, {old + ".log"}, {"trace_20190101_000000.log/"}, now + ".log"},
        {"/trace.log", 1, {}, {old, old + "x.log", old + ".log.gz"}, now + ".log"},
        {"/trace.log", 1, {}, {"T" + old.substr(1) + ".log", "trace.old.log"}, now + ".log"},
        {"/trace.log", 1, {}, {now + ".log/"}, now + "_01.log"},
        {"\\trace.log", 0, {}, {now + "_01.log"}, now + "_02.log"},
        {"/trace.log", 0, {}, {now + "_99.log", now + "_100.log"}, now + "_101.log"},
        {"/trace.log", 0, {}, {"trace_29990101_000000_50.log"}, now + ".log"},
        {"\\trace", 1, {old}, {}, now},
        {"\\d.d\\trace", 1, {"d.d/" + old}, {"d.d/"}, "d.d/" + now},
        {"/d.d\\a.b.log", 0, {}, {"d.d/"}, "d.d/a.b" + date + ".log"},
    };
    for (const auto& [name, maxBackups, removed, left, added] : cases) {
        SCOPED_TRACE(testing::Message() << name << ", to " << added);
        const LogFolder folder;
        const TestClock clock;
        std::string log = name.substr(1);
        std::replace(log.begin(), log.end(), '\\', '/');
        std::vector<std::string> expected = {log, added};
        for (const std::string& entry : left) {
            const bool isFile = entry.back() != '/';
            expected.push_back(isFile ? entry : entry.substr(0, entry.size() - 1));
            EXPECT_TRUE(isFile || fs::create_directory(folder.File(expected.back())));
            folder.Write(entry, "left");
        }
        for (const std::string& backup : removed) {
            folder.Write(backup, "removed");
        }
        folder.Write(log, "old");
        EXPECT_TRUE(RollOver(folder.Path() + name, maxBackups));
        EXPECT_EQ("old", folder.Read(added));
        EXPECT_THAT(folder.Names(), testing::UnorderedElementsAreArray(expected));
    }
}

TEST(ZoFileRollover, TheOrderOfNamesIsTheOrderOfTimeForAnyNumberOfRolloversWithinASecond) {
    constexpr int kRollovers = 150;
    for (const char* const separator : {"/", "\\"}) {
        for (const int maxBackups : {0, 1, 5}) {
            SCOPED_TRACE(testing::Message() << separator << ", keeping " << maxBackups);
            const LogFolder folder;
            TestClock clock;
            CZoFileOutput output;
            ASSERT_TRUE(output.SetParams((folder.Path() + separator + "trace.log").c_str(),
                                         RolloverBySize, 0, maxBackups));
            ASSERT_TRUE(output.Open());
            for (int i = 0; i <= kRollovers; ++i) {
                clock.Advance(i == kRollovers - 2 ? 1 : 0);
                ASSERT_TRUE(output.Log(std::to_string(i).c_str())) << i;
            }
            const auto backups = folder.Backups();
            ASSERT_EQ(maxBackups == 0 ? kRollovers + 1 : maxBackups, std::ssize(backups));
            int expected = kRollovers - static_cast<int>(backups.size());
            for (const std::string& name : backups) {
                EXPECT_EQ(expected < 0 ? "" : std::to_string(expected), folder.Read(name));
                ++expected;
            }
            fs::remove(folder.File(backups.back()));
            EXPECT_TRUE(output.Log("not under the number of the one that somebody removed"));
            EXPECT_EQ("trace" + DateOf(TestClock::kStart + 1) + "_03.log", folder.Backups().back());
        }
    }
}

TEST(ZoFileRollover, ANameWithoutADirectoryOrRoomForDateAndNumberFailsAndChangesNothing) {
    const LogFolder folder;
    const TestClock clock;
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    const struct {
        std::size_t length;  // of the whole name; 0 is for one without a directory
        const char* number;  // of a backup of the same second
        bool rollsOver;
    } cases[] = {{0, "", false},     {235, "", true},     {236, "", false},  {300, "", false},
                 {235, "_98", true}, {235, "_99", false}, {234, "_99", true}};
    for (const auto& [length, number, rollsOver] : cases) {
        SCOPED_TRACE(testing::Message() << length << ", number " << number);
        const std::string directory = length == 0 ? "" : folder.File(std::string(100, 'd') + '/');
        const std::string stem =
            directory + std::string(std::max(length, std::size_t{9}) - directory.size() - 4, 'n');
        fs::create_directory(folder.File(std::string(100, 'd')));
        const auto write = [](const std::string& name) { std::ofstream(name) << "old"; };
        write(stem + ".log");
        write(stem + "_20200101_000000.log");
        write(*number == 0 ? stem + ".log" : stem + DateOf(TestClock::kStart) + number + ".log");
        EXPECT_EQ(rollsOver, RollOver(stem + ".log", 1));
        EXPECT_EQ(rollsOver ? 0U : 3U, fs::file_size(stem + ".log"));
        EXPECT_NE(rollsOver, fs::exists(stem + "_20200101_000000.log"));
        fs::remove_all(directory);
    }
    fs::current_path(before);
}

}  // namespace
