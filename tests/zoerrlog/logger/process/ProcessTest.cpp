#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <zoerrlog/zoerrlog.h>

#include "support/TemporaryDirectory.h"
#include "zoerrlog/logger/CountingOutput.h"

namespace {

constexpr std::size_t kThreads = 4;
constexpr int kForks = 20;
constexpr unsigned int kLongestChild = 60;

// Lines of each thread that the logger took; parent and children have it in common.
auto& g_logged = *static_cast<std::array<std::atomic<long>, kThreads>*>(::mmap(
    nullptr, sizeof(long) * kThreads, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

// Threads that log until the object's end; each has logged so much when the constructor returns.
class LoggingThreads {
public:
    explicit LoggingThreads(long lines) {
        for (std::atomic<long>& logged : g_logged) {
            logged = 0;
            m_threads.emplace_back([&, number = m_threads.size()] { Run(number, logged); });
        }
        for (const std::atomic<long>& logged : g_logged) {
            while (logged < lines) {
                std::this_thread::yield();
            }
        }
    }
    ~LoggingThreads() {
        m_stop = true;
        for (std::thread& thread : m_threads) {
            thread.join();
        }
    }

private:
    void Run(std::size_t thread, std::atomic<long>& logged) {
        CZoErrLogMessage message(false);
        while (!m_stop) {
            message.GetArgList().clear() << std::to_string(thread) + " " + std::to_string(logged);
            message.FormatLogProlog("thread", 1, 0);
            message.FormatMessageA(0x01004001);
            logged += theLogger()->LogErrMsg(message);
        }
    }

    std::atomic<bool> m_stop{false};
    std::vector<std::thread> m_threads;
};

// What the child exits with; negative when it was ended by a signal.
int StatusOf(pid_t child) {
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

TEST(Exit, WhileThreadsLogKeepsEveryLineThatWasTaken) {
    for (int round = 0; round < 10; ++round) {
        const zotest::TemporaryDirectory directory;
        const std::string file = directory.File("log.txt");
        const pid_t child = ::fork();
        if (child == 0) {
            ::alarm(kLongestChild);
            theLogger()->SetLogOutput(theLogger()->NewLogOutput(1, file.c_str(), 1, 0, 0));
            const LoggingThreads threads(200);
            std::exit(0);
        }
        ASSERT_EQ(StatusOf(child), 0);
        std::istringstream lines(directory.Read("log.txt"));
        std::array<long, kThreads> found = {};
        for (std::string line; std::getline(lines, line);) {
            std::size_t thread = kThreads;
            long number = -1;
            int length = 0;
            std::sscanf(line.c_str(), "[%*d/%*u][%*24c][thread:1][INFO][zo-log-00000] %zu %ld%n",
                        &thread, &number, &length);
            ASSERT_EQ(line.size(), static_cast<std::size_t>(length)) << line;
            EXPECT_EQ(number, found.at(thread)++);
        }
        for (std::size_t thread = 0; thread < kThreads; ++thread) {
            // A thread may have been stopped between its last line and the count.
            const long uncounted = found[thread] - g_logged[thread];
            EXPECT_TRUE(uncounted == 0 || uncounted == 1) << uncounted;
        }
    }
}

zotest::OutputCounts g_counts;

TEST(Exit, ClosesTheOutputsOfNamedLoggers) {
    const pid_t child = ::fork();
    if (child == 0) {
        // Runs after what the registry, which is made later, does at the exit.
        std::atexit([] { ::_exit(g_counts.closed == 1 && g_counts.destroyed == 1 ? 0 : 1); });
        CZoLogOutput* const output = new zotest::CountingOutput(g_counts);
        std::exit(removeMyLogger("none") && getMyLogger("named")->SetLogOutput(output) ? 0 : 1);
    }
    EXPECT_EQ(StatusOf(child), 0);
}

std::atomic<std::size_t> g_blocked{0};

void Block(const char* /*text*/, int /*length*/) {
    for (++g_blocked;;) {
        ::pause();
    }
}

TEST(Exit, WhileCallbacksBlockEnds) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(kLongestChild);
        theLogger()->SetLogOutput(theLogger()->NewLogOutput(2, Block));
        const LoggingThreads threads(0);
        while (g_blocked < kThreads) {
            std::this_thread::yield();
        }
        std::exit(0);
    }
    EXPECT_EQ(StatusOf(child), 0);
}

// True when a line of the calling thread is taken and has the ids that it must have.
bool LogOwnLine(const char* text) {
    char ids[40];
    std::snprintf(ids, sizeof ids, "[%d/%d][", ::getpid(), ::gettid());
    CZoErrLogMessage message;
    message.GetArgList() << text;
    message.FormatLogProlog("fork", 1, 0);
    message.FormatMessageA(0x01004001);
    return std::string_view(message.GetBuffer()).starts_with(ids) &&
           theLogger()->LogErrMsg(message);
}

TEST(ExecutedChild, InheritsNoDescriptor) {
    const zotest::TemporaryDirectory directory;
    CZoLogger& logger = *theLogger();
    for (const int mode : {0, 1, 2, 3, 4}) {
        const std::string file = directory.File(std::to_string(mode));
        // A limit of nothing: every line of the last two modes starts a new file.
        ASSERT_TRUE(logger.SetLogOutput(logger.NewLogOutput(1, file.c_str(), mode, 0, 0)));
        EXPECT_TRUE(LogOwnLine("line"));
        const std::string inherited = "ls -l /proc/self/fd | grep -q " + directory.Path();
        EXPECT_NE(std::system(inherited.c_str()), 0) << mode;
    }
    logger.DisableLog();
}

TEST(ForkedChild, LogsAtOnceUnderItsOwnIds) {
    const zotest::TemporaryDirectory directory;
    CZoLogger& logger = *theLogger();
    const std::string file = directory.File("log.txt");
    // With a limit that is never reached: every line takes the file's lock too.
    ASSERT_TRUE(logger.SetLogOutput(logger.NewLogOutput(1, file.c_str(), 3, 1000, 0)));
    const LoggingThreads threads(1);
    for (int i = 0; i < kForks; ++i) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::alarm(kLongestChild);
            const bool logged = LogOwnLine("child");
            // Nobody holds the channel, nor waits for it.
            logger.DisableLog();
            ::_exit(logged ? 0 : 1);
        }
        ASSERT_EQ(StatusOf(child), 0);
        EXPECT_TRUE(LogOwnLine("between"));
    }
    logger.DisableLog();
}

pid_t g_child = -1;
bool g_childLogged = false;

void ForkInCallback(const char* text, int length) {
    if (std::string_view(text, static_cast<std::size_t>(length)).ends_with("] fork\n")) {
        g_child = ::fork();
        if (g_child == 0) {
            ::alarm(kLongestChild);
            g_childLogged = LogOwnLine("nested");
        }
    }
}

TEST(ForkedChild, OfACallbackLogsThereLeavesItAndLogsOn) {
    CZoLogger& logger = *theLogger();
    ASSERT_TRUE(logger.SetLogOutput(logger.NewLogOutput(2, ForkInCallback)));
    const LoggingThreads threads(1);
    for (int i = 0; i < kForks; ++i) {
        const bool logged = LogOwnLine("fork");
        if (g_child == 0) {
            g_childLogged = g_childLogged && logged && LogOwnLine("after");
            // The forking thread's own hold is gone with the callback: replacing is possible.
            logger.DisableLog();
            ::_exit(g_childLogged && !LogOwnLine("none") ? 0 : 1);
        }
        EXPECT_TRUE(logged);
        ASSERT_EQ(StatusOf(g_child), 0);
    }
    logger.DisableLog();
}

}  // namespace
