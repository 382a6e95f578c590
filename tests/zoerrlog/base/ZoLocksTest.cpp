#include <gtest/gtest.h>
#include <zoerrlog/base/ZoGuard.h>
#include <zoerrlog/base/ZoLocks.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "zoerrlog/base/LockScript.h"

namespace {

using zotest::ActionsOn;
using zotest::LockScriptPlayer;

template <class Guard>
class ZoGuardTest : public testing::Test {};

using Guards = testing::Types<CZoErrLogGuard, CZoGuard>;
TYPED_TEST_SUITE(ZoGuardTest, Guards);

TYPED_TEST(ZoGuardTest, IsHandedToAWaitingWriterFirstAndOtherwiseToAllWaitingReaders) {
    const char* const scripts[] = {
        // readers share it, and one that comes later queues behind the waiting writer
        "Ra Rb Wc:c Rd:cd Ua:cd Ub:d Uc Ud",
        // waiting writers first, then all readers together; the next writer waits for them all
        "Wa Rb:b Wc:bc Rd:bcd We:bcde Rf:bcdef Ua:bdef Uc:bdf Ue Wa:a Ub:a Ud:a Uf Ua",
        // back-to-back writers keep a reader waiting
        "Wa Rb:b Wc:bc Ua:b Wa:ab Uc:b Wc:bc Ua:b Uc Ub",
        // nobody overtakes the thread that the guard was just handed to
        "Wa Wb:b wa:a wb:b wa:a wb:b ra:a Ub Ua",
        "Wa Rb:b wa:a rb:b wa:a Ub Ua",
    };
    for (std::string script : scripts) {
        TypeParam guard;
        LockScriptPlayer player(ActionsOn(guard));
        EXPECT_EQ(player.Play(script), "");
        // and no matter which thread lets it go
        for (auto at = script.find('U'); at != std::string::npos; at = script.find('U', at + 1)) {
            script[at + 1] = 'm';
        }
        EXPECT_EQ(player.Play(script), "");
    }
}

TYPED_TEST(ZoGuardTest, MayBeDestroyedByTheThreadThatItWasHandedTo) {
    for (int round = 0; round < 1000; ++round) {
        auto owned = std::make_unique<TypeParam>();
        const auto act = ActionsOn(*owned);
        std::atomic<bool> arrived{false};
        act(round % 3 == 0 ? 'R' : 'W');
        std::jthread waiter([&arrived, act, round, last = std::move(owned)]() mutable {
            arrived = true;
            act(round % 3 == 1 ? 'R' : 'W');
            act('U');
            last.reset();
        });
        for (int pause = round % 16; !arrived || pause-- > 0;) {
            std::this_thread::yield();
        }
        act('U');
    }
}

TYPED_TEST(ZoGuardTest, KeepsWritersApartFromEverybodyAndLosesNobody) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 8000;
    TypeParam guard;
    long written[2] = {};
    std::atomic<int> torn{0};
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int round = 0; round < kRounds; ++round) {
                if ((round + thread) % 4 == 0) {
                    guard.LockForWrite();
                    ++written[0];
                    ++written[1];
                } else {
                    guard.LockForRead();
                    torn += written[0] == written[1] ? 0 : 1;
                }
                guard.Unlock();
            }
        });
    }
    threads.clear();
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(written[0], kThreads * kRounds / 4);
}

template <class Locker, class Lock>
void ExpectHeldByLocker(Lock& lock, const char* meanwhile, const char* afterwards) {
    LockScriptPlayer player(ActionsOn(lock));
    {
        const Locker locker(lock);
        EXPECT_EQ(player.Play(meanwhile), "");
    }
    EXPECT_EQ(player.Play(afterwards), "");
}

TEST(ZoLocks, AreHeldByALockerUntilItGoesAndFreeOnceLeftAsOftenAsEntered) {
    CZoErrLogGuard guard;
    ExpectHeldByLocker<CZoErrLogAutoReader>(guard, "Ra Wb:b Ua:b", ": Ub");
    ExpectHeldByLocker<CZoErrLogAutoWriter>(guard, "Ra:a", ": Ua");
    CZoErrLogCriticalSection section;
    CZoErrLogCS lock;
    const char* const enteredThrice = ": Ea Ea Eb:b La:b La:b La Ea:a Lb La";
    ExpectHeldByLocker<CZoErrLogPrivAutoCS>(section, "Ea:a Em:a Lm:a", enteredThrice);
    ExpectHeldByLocker<CZoErrLogAutoCS>(lock, "Ea:a Em:a Lm:a", enteredThrice);
}

TEST(ZoLocks, LetOneThreadInAtATimeWhoeverSleptMeanwhile) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 3000;
    CZoErrLogCS lock;
    long inside = 0;  // no atomic: the lock is all that keeps it right
    long entered = 0;
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < kRounds; ++round) {
                errno = round;
                const CZoErrLogAutoCS outer(lock);
                const CZoErrLogAutoCS inner(lock);
                EXPECT_EQ(++inside, 1);
                entered += 1;
                if (round % 100 == 0) {
                    // Long enough for the others to fall asleep.
                    std::this_thread::sleep_for(std::chrono::microseconds(200));
                }
                --inside;
                if (round % 100 != 0) {
                    EXPECT_EQ(errno, round);
                }
            }
        });
    }
    threads.clear();
    EXPECT_EQ(entered, kThreads * kRounds);
}

template <class Lock>
void UseDestroyed(const char* actions) {
    alignas(Lock) unsigned char storage[sizeof(Lock)];
    Lock& lock = *::new (storage) Lock;
    lock.~Lock();
    // Each would block or crash over a lock that is held, half alive or gone.
    LockScriptPlayer player(ActionsOn(lock));
    EXPECT_EQ(player.Play(actions), "");
    // A second end would free what the first one freed.
    lock.~Lock();
    EXPECT_EQ(player.Play(actions), "");
}

TEST(ZoLocks, ThatAreDestroyedAcceptEverythingAndDoNothing) {
    UseDestroyed<CZoErrLogGuard>("Um Wm Rm Wa Ua");
    UseDestroyed<CZoErrLogCS>("Lm Em Ea La");
}

}  // namespace
