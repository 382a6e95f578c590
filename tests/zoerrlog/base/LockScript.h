#ifndef TESTS_ZOERRLOG_BASE_LOCKSCRIPT_H
#define TESTS_ZOERRLOG_BASE_LOCKSCRIPT_H

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <utility>

namespace zotest {

/// A thread that does one step after the other, as told, and that can be seen to wait in one.
class SteppedThread {
public:
    SteppedThread() : m_thread([this] { Run(); }) {}
    ~SteppedThread() {
        if (!Settles(false)) {
            // It uses objects that are about to go, and cannot be joined.
            std::abort();
        }
        Start(nullptr);
        m_thread.join();
    }

    /// Begins a step; the one before must have finished.
    void Start(std::function<void()> step) {
        m_step = std::move(step);
        m_phase = Phase::kTold;
        m_phase.notify_one();
    }

    /// True once the thread has finished its step or, with `asleep`, once it sleeps in it; false
    /// when it does the other, the one within a time that only a hang takes.
    [[nodiscard]] bool Settles(bool asleep) const {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (std::chrono::steady_clock::now() < deadline) {
            const bool finished = m_phase == Phase::kIdle;
            if (finished || (asleep && SleepsInStep())) {
                return finished != asleep;
            }
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
        return false;
    }

private:
    enum class Phase { kIdle, kTold, kRunning };

    void Run() {
        m_tid = ::gettid();
        for (m_phase.wait(Phase::kIdle); m_step; m_phase.wait(Phase::kIdle)) {
            m_phase = Phase::kRunning;
            m_step();
            m_phase = Phase::kIdle;
        }
    }

    // A short sleep on the way, for a lock of the run-time environment, ends by itself: asleep is
    // only who has not been on a processor between two looks.
    [[nodiscard]] bool SleepsInStep() const {
        if (m_phase != Phase::kRunning) {
            return false;
        }
        // The status tells, among others, how often the thread has left the processor.
        const auto status = [path = "/proc/self/task/" + std::to_string(m_tid) + "/status"] {
            std::ifstream file(path);
            return std::string(std::istreambuf_iterator<char>(file), {});
        };
        // Other lines are about the whole process, whose memory changes with every look.
        const auto switches = [](const std::string& text) {
            return text.substr(std::min(text.find("voluntary_ctxt_switches"), text.size()));
        };
        const std::string before = status();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return before.find("(sleeping)") != std::string::npos &&
               switches(status()) == switches(before);
    }

    std::function<void()> m_step;
    std::atomic<Phase> m_phase{Phase::kIdle};
    pid_t m_tid = 0;
    std::thread m_thread;
};

/// What the letters of a script do to a lock. R and W lock a guard for reading and writing, U
/// unlocks it; the small letters unlock it and lock it again at once, when the thread that comes
/// next may not have woken yet. E enters a recursive lock, L leaves it.
template <class Lock>
auto ActionsOn(Lock& lock) {
    return [&lock](char action) {
        if constexpr (requires { lock.Enter(); }) {
            action == 'E' ? lock.Enter() : lock.Leave();
        } else {
            if (action == 'U' || action == 'r' || action == 'w') {
                lock.Unlock();
            }
            if (action == 'R' || action == 'r') {
                lock.LockForRead();
            } else if (action != 'U') {
                lock.LockForWrite();
            }
        }
    };
}

/// Plays scripts on a lock. A script is a line of steps such as "Ra Wb:b Ua": the thread a does R,
/// then b does W and waits in it, then a does U and nobody waits any more. The thread m is the one
/// that plays; the others live as long as the player. In ":b" nothing is done, but b must wait.
class LockScriptPlayer {
public:
    explicit LockScriptPlayer(std::function<void(char action)> act) : m_act(std::move(act)) {}

    /// Gives the first step after which the wrong threads wait, or nothing.
    [[nodiscard]] std::string Play(const std::string& script) {
        std::istringstream steps(script);
        for (std::string step; steps >> step;) {
            const std::size_t colon = step.find(':');
            if (step[1] == 'm') {
                m_act(step[0]);
            } else if (colon != 0) {
                m_threads[step[1]].Start([this, action = step[0]] { m_act(action); });
            }
            for (const auto& [name, thread] : m_threads) {
                const bool waits = step.find(name, colon) != std::string::npos;
                if (!thread.Settles(waits)) {
                    return step + " of " + script + ": " + name + (waits ? " goes on" : " waits");
                }
            }
        }
        return {};
    }

private:
    std::function<void(char action)> m_act;
    std::map<char, SteppedThread> m_threads;
};

}  // namespace zotest

#endif
