#include <gtest/gtest.h>
#include <zoerrlog/base/ZoSemaphore.h>

#include <atomic>
#include <chrono>
#include <climits>
#include <thread>
#include <vector>

#include "zoerrlog/base/LockScript.h"

namespace {

using zotest::LockScriptPlayer;

constexpr unsigned long kNoLimit = 0xFFFFFFFF;
constexpr long kLargestCount = 0x7FFFFFFF;
constexpr int kGotUnit = 0;
constexpr int kTimeRanOut = 1;
constexpr int kFailed = -1;

long TakeAll(CZoErrLogSemaphore& semaphore) {
    long units = 0;
    for (; semaphore.Test(); ++units) {
    }
    return units;
}

// P waits for a unit without limit, a digit releases that many.
LockScriptPlayer PlayerOn(CZoErrLogSemaphore& semaphore) {
    return LockScriptPlayer([&semaphore](char action) {
        if (action == 'P') {
            EXPECT_EQ(semaphore.Wait(kNoLimit), kGotUnit);
        } else {
            semaphore.Release(action - '0');
            EXPECT_FALSE(semaphore.Test()) << "took a unit meant for a thread that waits";
        }
    });
}

TEST(ZoSemaphore, IsMadeWithPossibleCountsOnlyAndAReleaseAddsAllOfItsUnitsOrNone) {
    constexpr long kNotMade = -1;
    struct Case {
        long initial;
        long maximum;
        long released;
        long units;
    };
    for (const Case& c :
         {Case{0, 3, 3, 3}, Case{1, 3, 2, 3}, Case{0, 3, 4, 0}, Case{1, 3, 3, 1}, Case{1, 3, 0, 1},
          Case{1, 3, -1, 1}, Case{1, 3, LONG_MIN, 1}, Case{1, kLargestCount, LONG_MAX, 1},
          Case{0, 0, 1, kNotMade}, Case{2, 1, 1, kNotMade}, Case{-1, 1, 1, kNotMade},
          Case{-2, -1, 1, kNotMade}}) {
        SCOPED_TRACE(testing::Message() << c.initial << " of " << c.maximum);
        const bool made = c.units != kNotMade;
        CZoErrLogSemaphore atOnce(c.initial, c.maximum, true);
        EXPECT_EQ(atOnce.Init(1, 1), !made) << "a second one";
        CZoErrLogSemaphore later;
        EXPECT_EQ(later.Wait(kNoLimit), kFailed);
        EXPECT_EQ(later.Init(c.initial, c.maximum), made);
        later.Release(c.released);
        EXPECT_EQ(TakeAll(later), made ? c.units : 0) << "after a release of " << c.released;
        EXPECT_EQ(later.Wait(0), made ? kTimeRanOut : kFailed);
    }
}

TEST(ZoSemaphore, ServesWaitingThreadsInTheOrderOfTheirArrival) {
    CZoErrLogSemaphore semaphore(1, 3, true);
    LockScriptPlayer player = PlayerOn(semaphore);
    EXPECT_EQ(player.Play("Pa Pa:a Pb:ab Pc:abc Pd:abcd Pe:abcde"), "");
    // more than the maximum has no effect, no matter how many wait
    EXPECT_EQ(player.Play("4m:abcde 1m:bcde 2m:de 1m:e Pa:ea 1m:a"), "");
    semaphore.Release(3);
    EXPECT_EQ(player.Play(":"), "");
    EXPECT_EQ(TakeAll(semaphore), 2) << "what nobody waited for stays";
}

TEST(ZoSemaphore, AnExpiredWaitLeavesItsPlaceInTheQueueToTheOthers) {
    struct Case {
        const char* before;
        const char* after;
    };
    for (const Case& c : {Case{"", "Pa:a Pb:ab"}, Case{"Pa:a", "Pb:ab"}, Case{"Pa:a Pb:ab", ""}}) {
        CZoErrLogSemaphore semaphore(0, 2, true);
        LockScriptPlayer player = PlayerOn(semaphore);
        EXPECT_EQ(player.Play(c.before), "");
        zotest::SteppedThread expiring;
        expiring.Start([&] { EXPECT_EQ(semaphore.Wait(30), kTimeRanOut); });
        // queued now, or on a busy machine already expired
        static_cast<void>(expiring.Settles(true));
        EXPECT_EQ(player.Play(c.after), "");
        ASSERT_TRUE(expiring.Settles(false));
        EXPECT_EQ(player.Play("1m:b 1m"), "");
        semaphore.Release(2);
        EXPECT_EQ(TakeAll(semaphore), 2) << "nobody is left in the queue";
    }
}

TEST(ZoSemaphore, WaitsThatExpireNeitherLoseNorMakeUnits) {
    constexpr long kUnits = 1500;
    CZoErrLogSemaphore semaphore(0, kLargestCount, true);
    std::atomic<long> taken{0};
    std::vector<std::jthread> waiters;
    for (unsigned long limit : {1UL, 1UL, 2UL, 0UL}) {
        waiters.emplace_back([&, limit](std::stop_token stop) {
            while (!stop.stop_requested()) {
                taken += semaphore.Wait(limit) == kGotUnit ? 1 : 0;
            }
        });
    }
    for (long unit = 0; unit < kUnits; ++unit) {
        semaphore.Release(1);
        if (unit % 8 == 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    waiters.clear();
    EXPECT_EQ(taken + TakeAll(semaphore), kUnits);
}

}  // namespace
