#include <gtest/gtest.h>
#include <signal.h>

#include <atomic>
#include <cerrno>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <support/ChildProcess.h>
#include <zoerrlog/output/ZoFileOutput.h>

#include "FailingCalls.h"
#include "OutputTestSupport.h"

namespace {

using enum CZoFileOutput::RolloverMode;
using namespace zotest;

// Threads that log through one output from the construction to Stop.
class Writers {
public:
    explicit Writers(CZoFileOutput& output) {
        for (int i = 0; i < 4; ++i) {
            m_threads.emplace_back([this, &output, i] { Run(output, i); });
        }
    }

    void WaitForLines(int count) const {
        while (m_count < count) {
            std::this_thread::yield();
        }
    }

    // Ends the threads; returns every line that the output has taken, once.
    std::map<std::string, int> Stop() {
        m_stop = true;
        m_threads.clear();
        return m_accepted;
    }

private:
    // A line says what it is at both ends, so that a part of it is noticed.
    void Run(CZoFileOutput& output, int thread) {
        std::map<std::string, int> accepted;
        for (int i = 0; !m_stop; ++i) {
            const std::string name = std::to_string(thread) + "." + std::to_string(i);
            const std::string line = name + std::string(500, 'x') + name;
            if (output.Log((line + "\n").c_str())) {
                accepted[line] = 1;
                ++m_count;
            }
        }
        const std::lock_guard hold(m_mutex);
        m_accepted.merge(accepted);
    }

    std::atomic<bool> m_stop{false};
    std::atomic<int> m_count{0};
    std::mutex m_mutex;
    std::map<std::string, int> m_accepted;
    std::vector<std::jthread> m_threads;
};

TEST(ZoFileThread, EveryLineIsWrittenOnceAndWholeAndEveryNewFileBeginsWithTheHeaders) {
    MessageText header("header\n");
    for (const int mode : {Append, RolloverBySize}) {
        SCOPED_TRACE(mode);
        const LogFolder folder;
        CZoFileOutput output;
        ASSERT_TRUE(output.SetParams(folder.Log().c_str(), mode, 0, 0) && output.Open());
        output.SetHeaders(header, header);
        Writers writers(output);
        writers.WaitForLines(mode == Append ? 4000 : 400);
        auto expected = writers.Stop();
        auto files = folder.Backups();
        if (mode == RolloverBySize) {
            expected["header"] = 2 * static_cast<int>(expected.size());  // a file for each line
            files.front() = "trace.log";  // the file that Open created
        }
        for (const std::string& name : files) {
            EXPECT_TRUE(folder.Read(name).starts_with("header\nheader\n")) << name;
        }
        EXPECT_TRUE(expected == folder.Lines()) << "a line is missing, torn or there twice";
    }
}

TEST(ZoFileThread, OneThreadCarriesOutARetryAndNoLineOfTheOthersIsLost) {
    MessageText header("header\n");
    for (int round = 0; round < 10; ++round) {
        SCOPED_TRACE(round);
        const LogFolder folder;
        TestClock clock;
        folder.Write("trace.log", "old\n");
        CZoFileOutput output;
        ASSERT_TRUE(output.SetParams(folder.Log().c_str(), RolloverAtOpen, 1, 0));
        // A refused one leaves the old file open, another one leaves none.
        FailCalls(Call::Rename, {EACCES, EACCES, EACCES, EIO, EACCES, EIO, EIO, EACCES});
        output.SetHeaders(header, header);
        ASSERT_TRUE(output.Open());
        Writers writers(output);
        while (folder.Backups().empty()) {
            clock.Advance(301);
            std::this_thread::yield();
        }
        EXPECT_FALSE(FailuresArePending());
        auto expected = writers.Stop();
        expected["old"] = 1;
        expected["header"] = 2;
        EXPECT_TRUE(folder.ReadLog().starts_with("header\nheader\n"));
        EXPECT_TRUE(expected == folder.Lines()) << "a line is missing or there twice";
        EXPECT_EQ(1U, folder.Backups().size());
    }
}

// The address sanitizer leaves its allocator locked in a child forked while other threads allocate.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(ZoFileThread, AChildForkedWhileThreadsLogGoesOnLogging) {
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        const LogFolder folder;
        CZoFileOutput output;
        const int mode = round % 2 == 0 ? Append : RolloverBySize;
        ASSERT_TRUE(output.SetParams(folder.Log().c_str(), mode, 0, 0) && output.Open());
        Writers writers(output);
        writers.WaitForLines(40);
        const pid_t child = StartChild([&] {
            // Two processes that roll one log over at the same time are nobody's case.
            ::raise(SIGSTOP);
            EXPECT_TRUE(output.Log("child 1\n"));
            EXPECT_TRUE(output.Close() && output.Open() && output.Log("child 2\n"));
        });
        auto expected = writers.Stop();
        EXPECT_EQ(child, ::waitpid(child, nullptr, WUNTRACED));
        EXPECT_EQ(0, ::kill(child, SIGCONT));
        EXPECT_TRUE(Succeeded(child));
        expected.insert({{"child 1", 1}, {"child 2", 1}});
        EXPECT_TRUE(expected == folder.Lines()) << "a line is missing, torn or there twice";
    }
}
#endif

}  // namespace
