#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <zoerrlog/zoerrlog.h>

#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"

namespace {

// What is traced, what stands between the values, and the line of the thread "#".
const char* const kSettings[][3] = {{"Function, Data", "|", "#7|#52\n"},
                                    {"Data, User", " and ", "#52 and #9\n"}};
thread_local char t_marker = 0;
std::atomic<long> g_lines{0};

void Check(const char* text, int /*length*/) {
    std::string line = text;
    std::replace(line.begin(), line.end(), t_marker, '#');
    // A thread without a marker writes headings alone.
    EXPECT_TRUE(line == kSettings[0][2] || line == kSettings[1][2] || t_marker == 0) << text;
}

CZoLogger& Enable(CZoLogger* logger, int settings, bool keep = false) {
    const zotest::TemporaryDirectory directory;
    const auto& [fields, separator, line] = kSettings[settings];
    const std::string file =
        directory.Write("conf", std::string("components: Log\ndata: ") + fields);
    CZoLogOutput* const second = keep ? nullptr : logger->NewLogOutput(2, Check);
    EXPECT_TRUE(logger->EnableTrace(logger->NewLogOutput(2, Check), second, 2, separator,
                                    file.c_str(), false, keep, false));
    return *logger;
}

CZoTraceData* RecordOf(CZoLogger& logger) {
    CZoTraceData* record = nullptr;
    return logger.TraceAlloc(&record) ? record : nullptr;
}

// The line of a record before a value is set; leaves one behind.
std::string FirstLine(CZoTraceData* record) {
    std::string line = record->Format() ? record->GetFormattedTraceMessage() : "none";
    record->SetFieldValue(7, "left behind");
    return line;
}

TEST(TraceThreads, GetWholeLinesOfOneConfigurationWhileAllIsReplaced) {
    std::vector<CZoLogger*> loggers[8];
    std::vector<std::jthread> threads;
    for (auto& named : loggers) {
        threads.emplace_back([&named, number = threads.size()](const std::stop_token& stop) {
            for (int i = 0; i < 100; ++i) {
                named.push_back(getMyLogger(std::to_string(i).c_str()));
            }
            t_marker = static_cast<char>('A' + number);
            while (!stop.stop_requested()) {
                if (CZoTraceData* const record = RecordOf(*theLogger())) {
                    for (const unsigned int field : {7, 9, 52}) {
                        record->SetFieldValue(field, (t_marker + std::to_string(field)).c_str());
                    }
                    EXPECT_TRUE(record->Format());
                    g_lines += record->Log() ? 1 : 0;
                    record->LeaveNoBody();
                }
            }
        });
    }
    for (int round = 0; round < 120; ++round) {
        Enable(theLogger(), round / 2 % 2, round % 4 == 2);
        for (const long before = g_lines; g_lines < before + 20;) {
            std::this_thread::yield();
        }
        if (round % 4 != 0) {
            theLogger()->DisableTrace(round % 4 == 1);
        }
    }
    threads.clear();
    EXPECT_EQ(std::set(std::begin(loggers), std::end(loggers)).size(), 1U);
}

// Two configurations of which one alone selects the component as a whole: who is told that it is
// traced holds a record of that one, however the answer was found.
TEST(TraceThreads, AreAnsweredByOneConfigurationWhileTheyAreReplaced) {
    constexpr unsigned int kPart = 0x01010000;
    constexpr unsigned int kWhole = 0x01000000;
    enum : unsigned int { kFunction = 7, kData = 52 };
    const zotest::TemporaryDirectory directory;
    const std::string ofPart = directory.Write("part", "components: Log/Legacy\ndata: Function");
    const std::string ofWhole = directory.Write("whole", "components: Log\ndata: Data");
    std::atomic<long> answers{0};
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&](const std::stop_token& stop) {
            CZoLogger& logger = *theLogger();
            while (!stop.stop_requested()) {
                CZoTraceData* part = nullptr;
                CZoTraceData* whole = nullptr;
                if (logger.ShouldTraceAlloc(kWhole, &whole)) {
                    EXPECT_TRUE(whole->FieldTraced(kData) && !whole->FieldTraced(kFunction));
                    ++answers;
                }
                if (logger.ShouldTraceAlloc(kPart, &part)) {
                    EXPECT_NE(part->FieldTraced(kData), part->FieldTraced(kFunction));
                    ++answers;
                }
            }
        });
    }
    for (int round = 0; round < 2000; ++round) {
        const std::string& settings = round % 2 == 0 ? ofWhole : ofPart;
        CZoLogOutput* const output = theLogger()->NewLogOutput(2, [](const char*, int) {});
        EXPECT_TRUE(theLogger()->EnableTrace(output, 0, "", settings.c_str(), false, false, false));
        if (round % 50 == 0) {
            for (const long before = answers; answers < before + 20;) {
                std::this_thread::yield();
            }
        }
    }
    threads.clear();
    theLogger()->DisableTrace(false);
}

TEST(ThreadRecords, ReturnAsNewWhenTheirThreadEndsOrTheirLoggerGoes) {
    std::set<CZoTraceData*> used[3];
    const auto record = [](int i) {
        CZoLogger& logger = Enable(getMyLogger(std::to_string(i).c_str()), 0);
        errno = ENOTTY;
        CZoTraceData* const own = RecordOf(logger);
        EXPECT_TRUE(errno == ENOTTY && own == RecordOf(logger) && own->GetLogger() == &logger);
        EXPECT_EQ(FirstLine(own), "|\n");
        own->SetLogger(getMyLogger("199"));
        return own;
    };
    for (auto* const records : {&used[0], &used[1]}) {
        std::thread([&] {
            for (int i = 0; i < 200; ++i) {
                records->insert(record(i));
            }
        }).join();
    }
    EXPECT_TRUE(used[0].size() == 200 && used[1] == used[0]);
    for (int i = 0; i < 200; ++i) {
        CZoTraceData* const own = record(i);
        EXPECT_TRUE(removeMyLogger(std::to_string(i).c_str()));
        EXPECT_EQ(GetThreadTraceData()->m_pTraceData, own);
        EXPECT_TRUE(own->GetLogger() == theLogger() && FirstLine(own) == "\n");
        // The next logger gets the slot of the last one, but not its record.
        EXPECT_TRUE(record(1000) != own && used[2].insert(own).second);
        EXPECT_TRUE(removeMyLogger("1000"));
    }
}

// The sanitizers hold memory back, and their locks in a forked child.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(ThreadRecords, OfManyThreadsTakeNoMoreMemoryAndAreNotSharedByAForkedChild) {
    Enable(theLogger(), 0);
    long pages[2] = {};
    for (int i = 0; i < 20000; i += 8) {
        std::ifstream("/proc/self/statm") >> pages[1] >> pages[i >= 1000];
        std::vector<std::jthread> threads(8);
        for (std::jthread& thread : threads) {
            thread = std::jthread([] { EXPECT_EQ(FirstLine(RecordOf(*theLogger())), "|\n"); });
        }
    }
    EXPECT_LT(pages[1], pages[0] + 500);
    const std::jthread other([](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            EXPECT_EQ(FirstLine(RecordOf(*theLogger())), "|\n");
            RecordOf(*theLogger())->LeaveNoBody();
        }
    });
    CZoTraceData* const own = RecordOf(*theLogger());
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(zotest::SucceedsInChild([own] {
            EXPECT_EQ(RecordOf(*theLogger()), own);
            std::thread([own] {
                EXPECT_NE(RecordOf(*theLogger()), own);
                EXPECT_EQ(FirstLine(RecordOf(*theLogger())), "|\n");
            }).join();
            theLogger()->DisableTrace(false);
        }));
    }
}
#endif

TEST(ThreadState, IsOfTheCallingThreadAndDoesNotNest) {
    CZoRequestContext::SetRequestContextData(&g_lines);
    const CZoTraceSupresser outer;
    EXPECT_FALSE(CZoTraceSupresser::isTracing());
    std::thread([] {
        EXPECT_TRUE(CZoTraceSupresser::isTracing() && !CZoRequestContext::GetRequestContextData());
    }).join();
    { const CZoTraceSupresser inner; }
    EXPECT_TRUE(CZoTraceSupresser::isTracing());
    EXPECT_EQ(CZoRequestContext::GetRequestContextData(), &g_lines);
    EXPECT_EQ(getThreadId(4000000000), -294967296);
}

}  // namespace
