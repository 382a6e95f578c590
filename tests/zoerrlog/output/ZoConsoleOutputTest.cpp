#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/mman.h>
#include <termios.h>
#include <unistd.h>

#include <string>

#include <support/ChildProcess.h>
#include <zoerrlog/output/ZoConsoleOutput.h>

#include "OutputTestSupport.h"

namespace {

using namespace zotest;

// Runs `body` in a child whose standard output is a pseudo-terminal that passes every byte on
// unchanged and does not block; returns what arrives there.
template <typename Body>
std::string RunOnTerminal(Body body) {
    int master = -1, slave = -1;
    struct termios settings = {};
    ::cfmakeraw(&settings);
    EXPECT_EQ(0, ::openpty(&master, &slave, nullptr, &settings, nullptr));
    EXPECT_EQ(0, ::fcntl(slave, F_SETFL, O_WRONLY | O_NONBLOCK));
    const pid_t child = StartChild([&] {
        ::dup2(slave, STDOUT_FILENO);
        body();
        // What the test framework has to say goes to standard error.
        ::dup2(STDERR_FILENO, STDOUT_FILENO);
    });
    ::close(slave);
    std::string all;
    char part[4096];
    for (ssize_t n = 0; (n = ::read(master, part, sizeof part)) > 0;) {
        all.append(part, static_cast<std::size_t>(n));
    }
    ::close(master);
    EXPECT_TRUE(Succeeded(child));
    return all;
}

TEST(ZoConsoleOutput, EveryByteArrivesAtATerminalAndStandardOutputStaysOpen) {
    std::string text(100000, 'x');
    text.append("%s %n \xC3\xA9\r\n").push_back('\0');
    EXPECT_TRUE(text == RunOnTerminal([&] {
                    CZoConsoleOutput output;
                    MessageText message(text);
                    EXPECT_FALSE(output.Close() || output.Log(message));
                    EXPECT_TRUE(output.Open() && !output.Open());
                    EXPECT_TRUE(output.Log(message) && output.Close() && !output.Close());
                    EXPECT_NE(-1, ::fcntl(STDOUT_FILENO, F_GETFD)) << "it is the host's";
                }));
}

TEST(ZoConsoleOutput, StandardOutputTakesLinesOnlyAsATerminalAndIsSharedUntilTheLastClose) {
    EXPECT_EQ("line\n", RunOnTerminal([] {
                  CZoConsoleOutput first, second, third;
                  MessageText message("line\n");
                  const int terminal = ::dup(STDOUT_FILENO);
                  const int file = ::memfd_create("redirected", MFD_CLOEXEC);
                  EXPECT_TRUE(first.Open() && second.Open());
                  ::close(STDOUT_FILENO);
                  EXPECT_TRUE(first.Close() && third.Open()) << "the second one still holds it";
                  EXPECT_TRUE(second.Close() && third.Close());
                  EXPECT_FALSE(first.Open() || first.Log(message) || first.Close());
                  ::dup2(file, STDOUT_FILENO);
                  EXPECT_TRUE(first.Open() && !first.Log(message) && first.Close());
                  EXPECT_EQ(0, ::lseek(file, 0, SEEK_END));
                  ::dup2(terminal, STDOUT_FILENO);
                  EXPECT_TRUE(first.Open() && first.Log(message) && first.Close());
              }));
}

}  // namespace
