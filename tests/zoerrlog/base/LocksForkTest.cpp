#include <gtest/gtest.h>
#include <zoerrlog/base/ZoGuard.h>
#include <zoerrlog/base/ZoLocks.h>
#include <zoerrlog/base/ZoSemaphore.h>

#include <thread>
#include <vector>

#include "support/ChildProcess.h"
#include "zoerrlog/base/LockScript.h"

namespace {

using zotest::ActionsOn;
using zotest::LockScriptPlayer;
using zotest::SucceedsInChild;

// What holds when the thread m forks, what must hold in the child, how the parent goes on.
struct ForkCase {
    const char* before;
    const char* child;
    const char* after;
};

template <class Lock>
void ExpectInParentAndChild(Lock& lock, const ForkCase& c) {
    LockScriptPlayer parent(ActionsOn(lock));
    EXPECT_EQ(parent.Play(c.before), "");
    EXPECT_TRUE(SucceedsInChild([&c, &lock] {
        LockScriptPlayer child(ActionsOn(lock));
        EXPECT_EQ(child.Play(c.child), "");
    })) << c.before;
    EXPECT_EQ(parent.Play(c.after), "");
}

constexpr char kFreeGuard[] = "Wx Ry:y Rz:yz Ux Rm Wx:x Uy:x Uz:x Um Ux";
constexpr char kReadByForkingThread[] = "Rx Wy:y Ux:y Um Uy";
constexpr char kWrittenByForkingThread[] = "Rx:x Wy:xy Um:x Uy Ux";

template <class Guard>
class GuardForkTest : public testing::Test {};

using Guards = testing::Types<CZoErrLogGuard, CZoGuard>;
TYPED_TEST_SUITE(GuardForkTest, Guards);

TYPED_TEST(GuardForkTest, TheChildKeepsTheForkingThreadsHoldAndNoOther) {
    TypeParam guard;
    for (const ForkCase& c : {
             ForkCase{"Ra Rb Wc:c Rd:cd", kFreeGuard, "Ua:cd Ub:d Uc Ud"},
             ForkCase{"Wa Rb:b Rc:bc Wd:bcd", kFreeGuard, "Ua:bc Ud Ub Uc"},
             ForkCase{"Ra Rm Wb:b Rc:bc", kReadByForkingThread, "Um:bc Ua:c Ub Uc"},
             ForkCase{"Wm Ra:a Wb:ab", kWrittenByForkingThread, "Um:a Ub Ua"},
             // a hold that another thread has released no longer counts as its taker's
             ForkCase{"Wm Ua Wa", kFreeGuard, "Ua"},
             ForkCase{"Rm Ua Ra", kFreeGuard, "Ua Rb Um"},
         }) {
        ExpectInParentAndChild(guard, c);
    }
}

TYPED_TEST(GuardForkTest, TheChildKeepsHoweverManyGuardsTheForkingThreadReads) {
    TypeParam guards[20];
    for (TypeParam& guard : guards) {
        guard.LockForRead();
    }
    for (TypeParam& guard : guards) {
        ExpectInParentAndChild(guard, {"", kReadByForkingThread, "Um"});
    }
}

TEST(LocksForkTest, TheChildKeepsTheForkingThreadsEntriesAndNoOther) {
    CZoErrLogCriticalSection section;
    CZoErrLogCS lock;
    for (const ForkCase& c : {ForkCase{"Ea Ea Eb:b", "Ex Lx Em Em Ex:x Lm:x Lm Lx", "La:b La Lb"},
                              ForkCase{"Em Em Ea:a", "Ex:x Em:x Lm:x Lm:x Lm Lx", "Lm:a Lm La"}}) {
        ExpectInParentAndChild(section, c);
        ExpectInParentAndChild(lock, c);
    }
}

TEST(LocksForkTest, TheChildHasASemaphoresCountAndNobodyWaiting) {
    CZoErrLogSemaphore counted(2, 2, true);
    CZoErrLogSemaphore awaited(0, 2, true);
    LockScriptPlayer player([&awaited](char) { awaited.Wait(0xFFFFFFFF); });
    EXPECT_EQ(player.Play("Pa:a"), "");
    const auto countAndUse = [&counted, &awaited] {
        EXPECT_TRUE(counted.Test() && counted.Test() && !counted.Test());
        awaited.Release(2);
        EXPECT_TRUE(awaited.Test() && awaited.Test() && !awaited.Test());
    };
    EXPECT_TRUE(SucceedsInChild(countAndUse));
    awaited.Release(1);
    EXPECT_EQ(player.Play(":"), "");
    countAndUse();  // the child's units are not the parent's
}

TEST(LocksForkTest, AChildThatWasForkedAmidTheirUseFindsThemAllUsable) {
    CZoErrLogGuard guard;
    CZoErrLogCS lock;
    CZoErrLogSemaphore semaphore(1, 1000000, true);
    const auto useAll = [&] {
        for (const char kind : {'R', 'W'}) {
            ActionsOn(guard)(kind);
            lock.Enter();
            semaphore.Release(1);
            EXPECT_EQ(semaphore.Wait(0xFFFFFFFF), 0);
            lock.Leave();
            guard.Unlock();
        }
    };
    std::vector<std::jthread> users;
    for (int i = 0; i < 3; ++i) {
        users.emplace_back([&](std::stop_token stop) {
            while (!stop.stop_requested()) {
                useAll();
            }
        });
    }
    for (int i = 0; i < 100 && !testing::Test::HasFailure(); ++i) {
        EXPECT_TRUE(SucceedsInChild(useAll));
    }
}

}  // namespace
