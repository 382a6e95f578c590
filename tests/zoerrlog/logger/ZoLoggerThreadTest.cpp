#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <zoerrlog/zoerrlog.h>

#include "zoerrlog/logger/CountingOutput.h"

namespace {

constexpr int kThreads = 8;
constexpr int kReplacements = 50;

void WaitForNext(const std::atomic<long>& count) {
    for (const long before = count; count == before;) {
        std::this_thread::yield();
    }
}

TEST(Replacement, LosesNoLineAndCallsNoClosedOutput) {
    CZoLogger& logger = *theLogger();
    zotest::OutputCounts counts;
    ASSERT_TRUE(logger.SetLogOutput(new zotest::CountingOutput(counts)));
    std::atomic<bool> stop{false};
    std::atomic<long> logged{0};
    std::atomic<long> refused{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            CZoErrLogMessage message;
            message.GetArgList() << "line";
            while (!stop) {
                message.FormatLogProlog("replacement", 1, 0);
                message.FormatMessageA(0x01004001);
                ++(logger.LogErrMsg(message) ? logged : refused);
            }
        });
    }
    for (int i = 0; i < kReplacements; ++i) {
        // Each output gets lines, so that replacing and logging do meet.
        WaitForNext(counts.taken);
        EXPECT_TRUE(logger.SetLogOutput(new zotest::CountingOutput(counts)));
    }
    EXPECT_EQ(refused, 0);
    logger.DisableLog();
    const long taken = counts.taken;
    WaitForNext(refused);
    stop = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(counts.taken, taken);
    EXPECT_EQ(logged, taken);
    EXPECT_EQ(counts.outOfOrder, 0);
    EXPECT_EQ(counts.closed, 1 + kReplacements);
    EXPECT_EQ(counts.destroyed, counts.closed);
}

}  // namespace
