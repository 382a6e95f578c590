#include <map>

#include <gmock/gmock.h>

#include "zolog_process.h"

namespace {

namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;

std::size_t FilesIn(const fs::path& directory) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
}

void ExpectFilesBelowAMegabyte(const fs::path& log, std::size_t named) {
    EXPECT_GT(named, 2U);
    EXPECT_EQ(FilesIn(log), named);
    for (const fs::directory_entry& file : fs::directory_iterator(log)) {
        EXPECT_LT(file.file_size(), 1U << 20) << file.path();
    }
}

// Each of `messages` different input lines stands in the log `repeat` times, and always alike.
void ExpectLines(const fs::path& log, std::size_t messages, std::size_t repeat) {
    std::map<int, std::size_t> times;
    std::map<int, std::string> texts;
    for (const auto& [file, number, rest] : ReadLog(log)) {
        ++times[number];
        EXPECT_EQ(texts.emplace(number, rest).first->second, rest);
    }
    EXPECT_EQ(times.size(), messages);
    for (const auto& [number, found] : times) {
        EXPECT_EQ(found, repeat) << "input line " << number;
    }
}

void ExpectEveryLineOnce(const std::string& input, std::size_t messages, std::size_t repeat) {
    const TempDirectory directory;
    const Outcome outcome =
        RunZolog(directory, {"replay", input, "--repeat", std::to_string(repeat), "--mode", "3",
                             "--max-size", "1", "--backups", "0", "--threads", "8"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.Values("accepted"), Arguments{std::to_string(messages * repeat)});
    ExpectFilesBelowAMegabyte(directory.Path() / "zolog-out", outcome.Values("file").size());
    ExpectLines(directory.Path() / "zolog-out", messages, repeat);
}

TEST(ReplayRollover, KeepsEveryLineOnceOverAllFiles) {
    ExpectEveryLineOnce(ZOLOG_SAMPLE, 55, 500);
}

TEST(ReplayRollover, KeepsEveryLineOfARealLogOnce) {
    const std::string input = RealInput();
    if (input.empty()) {
        GTEST_SKIP() << "ZOLOG_REAL_INPUT names no readable file";
    }
    ExpectEveryLineOnce(input, 606, 100);
}

TEST(ReplayRollover, TheModeSaysWhatBecomesOfAnEarlierLog) {
    // Three runs into one directory, in which the summary names only what its own run made.
    const struct {
        Arguments options;
        std::size_t lines;
        std::size_t files;
        std::size_t named;
    } cases[] = {
        {{"--mode", "0"}, 55, 1, 1},
        {{"--mode", "1"}, 165, 1, 1},
        {{"--mode", "2"}, 165, 3, 2},
        {{"--mode", "3"}, 165, 1, 1},
        {{}, 165, 3, 2},
        {{"--mode", "4", "--backups", "1"}, 110, 2, 2},
    };
    for (const auto& [options, lines, files, named] : cases) {
        const TempDirectory directory;
        Arguments arguments = {"replay", ZOLOG_SAMPLE};
        arguments.insert(arguments.end(), options.begin(), options.end());
        RunZolog(directory, arguments);
        RunZolog(directory, arguments);
        const Outcome third = RunZolog(directory, arguments);
        const fs::path log = directory.Path() / "zolog-out";
        const std::string shown = testing::PrintToString(options);
        EXPECT_EQ(third.status, 0) << shown;
        EXPECT_EQ(ReadLog(log).size(), lines) << shown;
        EXPECT_EQ(FilesIn(log), files) << shown;
        EXPECT_EQ(third.Values("file").size(), named) << shown;
    }
}

}  // namespace
